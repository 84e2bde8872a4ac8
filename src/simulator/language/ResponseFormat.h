#pragma once

#include <span>
#include <string>
#include <string_view>

namespace portico::simulator {

// Response data as IEEE 488.2 and SCPI-99 write them.

/// `+1.00023400E+00`; not a number is 9.91E37 and an infinity 9.9E37 with its sign.
std::string FormatReal(double value);

/// Reals joined by commas.
std::string FormatReals(std::span<const double> values);

/// In double quotes, with each quote inside doubled.
std::string FormatString(std::string_view text);

/// A definite-length block: `#`, one digit that counts the digits of the length, the length, the bytes.
std::string FormatBlock(std::string_view bytes);

/// `1` or `0`.
std::string_view FormatBoolean(bool value);

} // namespace portico::simulator
