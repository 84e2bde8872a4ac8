#include "simulator/language/ResponseFormat.h"

#include "scpi/Syntax.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace portico::simulator {
namespace {

// SCPI-99, volume 1, 7.2.1.4 and 7.2.1.5.
constexpr double Infinity = 9.9E37;
constexpr double NotANumber = 9.91E37;

constexpr int FractionDigits = 8;

} // namespace

std::string FormatReal(double value) {
  if (std::isnan(value)) value = NotANumber;
  if (std::isinf(value)) value = std::copysign(Infinity, value);
  std::array<char, 32> digits{};
  const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), std::abs(value),
                                    std::chars_format::scientific, FractionDigits);
  std::string text(1, value < 0 ? '-' : '+');
  std::transform(digits.data(), result.ptr, std::back_inserter(text), scpi::ToUpper);
  return text;
}

std::string FormatReals(std::span<const double> values) {
  std::string text;
  for (const double value : values) {
    if (!text.empty()) text += ',';
    text += FormatReal(value);
  }
  return text;
}

std::string FormatString(std::string_view text) {
  std::string quoted = "\"";
  for (const char byte : text) {
    if (byte == '"') quoted += '"';
    quoted += byte;
  }
  return quoted += '"';
}

std::string FormatBlock(std::string_view bytes) {
  const std::string length = std::to_string(bytes.size());
  std::string block(1, '#');
  return block.append(std::to_string(length.size())).append(length).append(bytes);
}

std::string_view FormatBoolean(bool value) { return value ? "1" : "0"; }

} // namespace portico::simulator
