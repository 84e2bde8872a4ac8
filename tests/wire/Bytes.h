#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace portico::wire {

/// The bytes that pairs of hexadecimal digits tell; blanks do not count.
inline std::string Bytes(std::string_view digits) {
  std::string bytes;
  std::string pair;
  for (const char digit : digits) {
    if (digit != ' ') pair += digit;
    if (pair.size() < 2) continue;
    bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    pair.clear();
  }
  return bytes;
}

} // namespace portico::wire
