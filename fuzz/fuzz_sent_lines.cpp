#include "application/LineFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

using portico::LineFile;
using portico::LineLimits;
using portico::String;

namespace {

namespace fs = std::filesystem;

/// Of this process alone.
class Folder {
public:
  Folder() : m_path(fs::temp_directory_path() / ("portico-fuzz-" + std::to_string(std::random_device{}()))) {
    fs::create_directory(m_path);
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
  }
  fs::path File() const { return m_path / "sent-lines"; }

private:
  fs::path m_path;
};

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void CheckLines(const std::vector<String>& lines, const LineLimits& limits) {
  Require(lines.size() <= limits.Lines);
  std::size_t bytes = 0;
  for (const String& line : lines) {
    Require(line.find_first_of(portico::StringView(u"\r\n\0", 3)) == String::npos);
    bytes += portico::ToUtf8(line).size() + 1;
  }
  Require(bytes <= limits.Bytes);
}

} // namespace

// What is a file of ours can be read and goes on, and nothing is lost of it but what the limits drop; what is none
// stays as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  static const Folder folder;
  const fs::path path = folder.File();
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::ofstream(path, std::ios::binary) << bytes;
  const LineLimits limits =
      data[0] == 0 ? LineLimits() : LineLimits{.Lines = data[0] % 16U + 1U, .Bytes = data[0] + 20U};
  LineFile file(path, limits);
  const LineFile::Contents before = file.Read();
  CheckLines(before.Lines, limits);
  const auto fault = file.Append({u"*OPC?"});
  Require(fault.has_value() == before.Fault.has_value());
  if (fault) {
    Require(before.Lines.empty() && Bytes(path) == bytes);
    return 0;
  }
  const LineFile::Contents after = file.Read();
  Require(!after.Fault);
  CheckLines(after.Lines, limits);
  Require(!after.Lines.empty() && after.Lines.back() == u"*OPC?");
  if (!bytes.empty() && bytes.back() != '\n') return 0; // the torn line at its end has become whole
  std::vector<String> all = before.Lines;
  all.emplace_back(u"*OPC?");
  Require(after.Lines.size() <= all.size());
  Require(std::equal(after.Lines.rbegin(), after.Lines.rend(), all.rbegin()));
  if (data[0] == 0) Require(after.Lines.size() == all.size());
  return 0;
}
