#include "terminal/console/LineSource.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace portico::terminal {

std::string Describe(const std::string& name, const TextFault& fault) {
  return name + ":" + std::to_string(fault.Line) + ":" + std::to_string(fault.Column) + ": " + fault.Reason;
}

std::variant<std::unique_ptr<LineSource>, FileFault> ReadText(const std::string& name, std::string_view bytes) {
  auto lines = DecodeText(bytes);
  if (const auto* fault = std::get_if<TextFault>(&lines)) return FileFault{Describe(name, *fault)};
  return std::make_unique<FileLines>(name, std::move(std::get<std::vector<String>>(lines)));
}

std::variant<std::unique_ptr<LineSource>, FileFault> ReadCommandFile(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return FileFault{path + ": is a directory; name a command file"};
  std::ifstream file(path, std::ios::binary);
  if (!file) return FileFault{path + ": cannot be opened: " + std::generic_category().message(errno)};
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  if (file.bad()) return FileFault{path + ": cannot be read"};
  return ReadText(path, bytes);
}

} // namespace portico::terminal
