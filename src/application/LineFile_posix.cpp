#include "application/LineFile.h"

#include "application/EnvironmentText.h"
#include "application/OwnFiles.h"
#include "system/FileDescriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace portico {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using system::FileDescriptor;

constexpr std::string_view HeadingText = LineFile::Heading;
constexpr StringView NoText(u"\r\0", 2); // which no line has that was typed
constexpr mode_t OwnerOnly = S_IRUSR | S_IWUSR;
constexpr auto LockPause = 5ms;
constexpr int LockTries = 10;

/// Why something cannot be done, in words.
struct Refused {
  String Reason;
};
Refused SystemRefusal(int number = errno) { return {FromUtf8(std::generic_category().message(number)).Text}; }
Refused NotOurs() { return {u"it is something else"}; }

struct stat StateOf(int file) {
  struct stat state {};
  if (fstat(file, &state) != 0) throw SystemRefusal();
  return state;
}

/// The file's length. What is not a file of ours is refused; an empty one is.
off_t CheckOurs(int file) {
  const struct stat state = StateOf(file);
  if (!S_ISREG(state.st_mode)) throw NotOurs();
  if (state.st_size == 0) return 0;
  std::array<char, HeadingText.size()> head{};
  const ssize_t count = pread(file, head.data(), head.size(), 0);
  if (count < 0) throw SystemRefusal();
  if (std::string_view(head.data(), static_cast<std::size_t>(count)) != HeadingText) throw NotOurs();
  return state.st_size;
}

/// Open for writing and locked; what stands at the path by then is that file.
FileDescriptor OpenLocked(const fs::path& path, int flags) {
  for (int i = 0; i < LockTries; ++i) {
    FileDescriptor file(open(path.c_str(), O_RDWR | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | flags, OwnerOnly));
    if (!file.IsOpen()) throw SystemRefusal();
    if (flock(file.Get(), LOCK_EX | LOCK_NB) == 0) {
      struct stat named {};
      const struct stat state = StateOf(file.Get());
      if (stat(path.c_str(), &named) == 0 && named.st_ino == state.st_ino && named.st_dev == state.st_dev) return file;
    } else if (errno != EWOULDBLOCK) {
      throw SystemRefusal();
    }
    std::this_thread::sleep_for(LockPause);
  }
  throw Refused{u"another program holds it"};
}

std::string ReadFrom(int file, off_t start, std::size_t length) {
  std::string bytes(length, '\0');
  std::size_t done = 0;
  while (done < length) {
    const ssize_t count = pread(file, bytes.data() + done, length - done, start + static_cast<off_t>(done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw SystemRefusal();
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
  return bytes;
}

/// All of it, or none.
void WriteAtEnd(int file, std::string_view bytes, off_t end) {
  while (!bytes.empty()) {
    const ssize_t count = write(file, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) {
      const int reason = errno;
      if (ftruncate(file, end) != 0) throw SystemRefusal();
      throw SystemRefusal(reason);
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// The last lines that stand in the file, whole and each with its end, in so many bytes. What is behind the last line
/// end is torn.
std::string TailOf(int file, off_t size, std::size_t most) {
  const auto heading = static_cast<off_t>(HeadingText.size());
  if (size <= heading) return {};
  const off_t start = std::max(heading, size - static_cast<off_t>(most));
  // One byte more tells whether the first line is whole.
  std::string bytes = ReadFrom(file, start - 1, static_cast<std::size_t>(size - start) + 1);
  bytes.erase(0, bytes.find('\n') == std::string::npos ? bytes.size() : bytes.find('\n') + 1);
  bytes.erase(bytes.rfind('\n') + 1);
  return bytes;
}

std::size_t LinesIn(std::string_view bytes) { return static_cast<std::size_t>(std::ranges::count(bytes, '\n')); }

std::string_view Newest(std::string_view bytes, std::size_t lines) {
  for (std::size_t tooMany = LinesIn(bytes); tooMany > lines; --tooMany) bytes.remove_prefix(bytes.find('\n') + 1);
  return bytes;
}

std::optional<String> Sentence(StringView what, const fs::path& path, const Refused& refused) {
  return String(what).append(FromUtf8(path.native()).Text).append(u": ").append(refused.Reason).append(u".");
}

} // namespace

LineFile::Contents LineFile::Read() try {
  const FileDescriptor file(open(m_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.IsOpen()) {
    if (errno == ENOENT) return {};
    throw SystemRefusal();
  }
  const std::string bytes = TailOf(file.Get(), CheckOurs(file.Get()), m_limits.Bytes);
  m_count = LinesIn(bytes);
  Contents contents;
  for (std::string_view rest = Newest(bytes, m_limits.Lines); !rest.empty();) {
    const std::size_t end = rest.find('\n');
    const Utf8Text line = FromUtf8(rest.substr(0, end));
    const bool isText = !line.BadByte && line.Text.find_first_of(NoText) == String::npos;
    if (isText) contents.Lines.push_back(line.Text);
    rest.remove_prefix(end + 1);
  }
  return contents;
} catch (const Refused& refused) {
  return {{}, Sentence(u"The lines that were sent before cannot be read from ", m_path, refused)};
}

std::optional<String> LineFile::Append(const std::vector<String>& lines) try {
  MakeOwnDirectory(m_path.parent_path());
  const FileDescriptor file = OpenLocked(m_path, O_CREAT);
  const off_t size = CheckOurs(file.Get());
  if ((StateOf(file.Get()).st_mode & (S_IRWXG | S_IRWXO)) != 0) fchmod(file.Get(), OwnerOnly);
  std::string bytes(size == 0 ? HeadingText : "");
  if (size > 0 && ReadFrom(file.Get(), size - 1, 1) != "\n") bytes += '\n'; // somebody was killed while writing
  for (const String& line : lines) {
    AppendUtf8(bytes, line);
    bytes += '\n';
  }
  WriteAtEnd(file.Get(), bytes, size);
  m_count += lines.size();
  const bool isLong = m_count > m_limits.Lines + m_limits.Lines / 10;
  if (isLong || static_cast<std::size_t>(size) > m_limits.Bytes + m_limits.Bytes / 10) Shorten(file.Get());
  return {};
} catch (const Refused& refused) {
  return Sentence(u"The lines that are sent cannot be kept in ", m_path, refused);
}

/// Where that cannot be done the file stays as long as it is.
void LineFile::Shorten(int file) try {
  std::error_code fault;
  const fs::path place = fs::canonical(m_path, fault); // the user may have linked it
  if (fault) return;
  const fs::path name = place.native() + ".new";
  const FileDescriptor shorter(open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, OwnerOnly));
  if (!shorter.IsOpen()) return;
  try {
    const std::string tail = TailOf(file, StateOf(file).st_size, m_limits.Bytes);
    const std::string_view newest = Newest(tail, m_limits.Lines);
    WriteAtEnd(shorter.Get(), std::string(HeadingText).append(newest), 0);
    if (fsync(shorter.Get()) != 0 || rename(name.c_str(), place.c_str()) != 0) throw SystemRefusal();
    m_count = LinesIn(newest);
  } catch (const Refused&) {
    unlink(name.c_str());
  }
} catch (const fs::filesystem_error&) {
  return;
}

std::optional<String> LineFile::Clear() try {
  struct stat state {};
  if (stat(m_path.c_str(), &state) != 0 && errno == ENOENT) return {};
  const FileDescriptor file = OpenLocked(m_path, 0);
  CheckOurs(file.Get());
  if (ftruncate(file.Get(), 0) != 0) throw SystemRefusal();
  m_count = 0;
  return {};
} catch (const Refused& refused) {
  return Sentence(u"The lines that were sent cannot be removed from ", m_path, refused);
}

std::shared_ptr<ILineFile> OwnSentLinesFile() {
  const fs::path directory = StateDirectory({EnvironmentText("XDG_STATE_HOME"), EnvironmentText("HOME")});
  if (directory.empty()) return nullptr;
  return std::make_shared<LineFile>(directory / "sent-lines");
}

} // namespace portico
