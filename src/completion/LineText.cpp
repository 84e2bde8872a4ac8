#include "completion/LineText.h"

namespace portico::completion {

std::string LineBytes(StringView line) {
  std::string bytes;
  bytes.reserve(line.size());
  for (const char16_t unit : line) bytes += unit < u'\x7F' ? static_cast<char>(unit) : '\x7F';
  return bytes;
}

} // namespace portico::completion
