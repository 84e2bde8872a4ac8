#pragma once

#include <algorithm>
#include <string>

namespace portico::terminal {

/// A line for standard error, without its line end. The text may quote what the user typed or an instrument sent, so
/// control characters, which would break the line, stand as question marks.
inline std::string Diagnostic(const std::string& text) {
  std::string line = "portico-run: " + text;
  std::replace_if(
      line.begin(), line.end(),
      [](char character) {
        const auto byte = static_cast<unsigned char>(character);
        return byte < 0x20 || byte == 0x7F;
      },
      '?');
  return line;
}

} // namespace portico::terminal
