#pragma once

namespace portico::drivers {

/// One of the code page's characters that are not to be seen, and that would damage a line of text.
constexpr bool IsControl(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F;
}

} // namespace portico::drivers
