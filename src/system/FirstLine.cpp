#include "system/FirstLine.h"

#include <fstream>

namespace portico::system {

std::string FirstLine(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::string line;
  std::getline(stream, line);
  return line;
}

} // namespace portico::system
