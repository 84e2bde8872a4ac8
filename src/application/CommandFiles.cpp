#include "application/CommandFiles.h"

#include "application/EnvironmentText.h"
#include "application/HostEnvironment.h"
#include "application/OwnFiles.h"
#include "completion/CommandList.h"

#include <algorithm>
#include <fstream>
#include <system_error>

namespace portico {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t LongestName = 200; // of a file, in bytes

String Named(const fs::path& path) { return FromUtf8(path.native()).Text; }

String Sentence(StringView what, const fs::path& path) { return String(what).append(Named(path)).append(u"."); }

ICommandFiles::File Read(const fs::path& path) {
  ICommandFiles::File file{.Name = Named(path.filename()), .Bytes = {}, .Fault = {}};
  constexpr std::size_t most = completion::CommandList::MostBytes + 1;
  std::error_code fault;
  const auto size = fs::is_regular_file(path, fault) ? fs::file_size(path, fault) : 0; // a pipe would not end
  std::ifstream stream(path, std::ios::binary);
  if (fault || !stream) {
    file.Fault = Sentence(u"The commands cannot be read from ", path);
    return file;
  }
  file.Bytes.resize(static_cast<std::size_t>(std::min<std::uintmax_t>(size, most)));
  stream.read(file.Bytes.data(), static_cast<std::streamsize>(file.Bytes.size()));
  file.Bytes.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream.bad()) file = {file.Name, {}, Sentence(u"The commands cannot be read from ", path)};
  return file;
}

/// A file name for any text: what might mean something in one is written in hexadecimal.
std::string FileName(const String& instrument) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string name;
  for (const char byte : ToUtf8(instrument)) {
    const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
                         byte == '-' || byte == '_' || byte == ',' || (byte == '.' && !name.empty());
    const auto code = static_cast<unsigned char>(byte);
    if (isPlain) {
      name += byte;
    } else {
      name.append({'%', digits[code >> 4U], digits[code & 0xFU]});
    }
  }
  return name.substr(0, LongestName) + ".txt";
}

} // namespace

std::vector<CommandFiles::Stamp> CommandFiles::Look() const {
  std::vector<Stamp> all;
  for (const fs::path& folder : {m_folders.User, m_folders.Program}) {
    if (folder.empty()) continue;
    std::vector<Stamp> lists;
    std::error_code fault;
    fs::directory_iterator entry(folder, fault);
    for (; !fault && entry != fs::directory_iterator(); entry.increment(fault)) {
      const fs::path& path = entry->path();
      std::error_code unknown;
      if (path.extension() != ".txt" || !fs::is_regular_file(path, unknown)) continue;
      lists.push_back({path, fs::last_write_time(path, unknown), fs::file_size(path, unknown)});
    }
    std::ranges::sort(lists, {}, &Stamp::Path);
    if (lists.size() > MostLists) lists.resize(MostLists);
    all.insert(all.end(), lists.begin(), lists.end());
  }
  return all;
}

bool CommandFiles::HaveListsChanged() { return !m_read || *m_read != Look(); }

std::vector<ICommandFiles::File> CommandFiles::Lists() {
  m_read = Look();
  std::vector<File> lists;
  for (const Stamp& list : *m_read) lists.push_back(Read(list.Path));
  return lists;
}

ICommandFiles::File CommandFiles::Told(const String& instrument) {
  const fs::path path = m_folders.Told / FileName(instrument);
  std::error_code fault;
  if (m_folders.Told.empty() || !fs::exists(path, fault)) return {};
  return Read(path);
}

std::optional<String> CommandFiles::KeepTold(const String& instrument, std::string_view bytes) {
  if (m_folders.Told.empty()) return {};
  const fs::path path = m_folders.Told / FileName(instrument);
  const fs::path part = path.native() + ".new";
  std::error_code fault;
  MakeOwnDirectory(m_folders.Told);
  std::ofstream stream(part, std::ios::binary | std::ios::trunc);
  fs::permissions(part, fs::perms::owner_read | fs::perms::owner_write, fault);
  stream << bytes;
  stream.close();
  if (!fault && stream) fs::rename(part, path, fault);
  if (!fault && stream) return {};
  std::error_code ignored;
  fs::remove(part, ignored);
  return Sentence(u"What the instrument has told cannot be kept in ", path);
}

std::shared_ptr<ICommandFiles> OwnCommandFiles() {
  const fs::path program(ToUtf8(HostEnvironment().ProgramDirectory()));
  std::error_code fault;
  const fs::path installed = program / "../share/portico/commands";
  const std::string home = EnvironmentText("HOME");
  const fs::path state = StateDirectory({EnvironmentText("XDG_STATE_HOME"), home});
  const fs::path data = DataDirectory({EnvironmentText("XDG_DATA_HOME"), home});
  return std::make_shared<CommandFiles>(CommandFiles::Folders{
      .User = data.empty() ? fs::path() : data / "commands",
      .Program = fs::is_directory(installed, fault) ? installed : program / "../../../data/commands",
      .Told = state.empty() ? fs::path() : state / "instruments",
  });
}

} // namespace portico
