#include "numbers/NumberList.h"

#include "framework/text/DecimalNumber.h"
#include "numbers/SpecialValues.h"
#include "numbers/Syntax.h"
#include "scpi/Syntax.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace portico::numbers {
namespace {

constexpr std::size_t LongestQuote = 24;

constexpr bool IsSeparator(char byte) { return byte == ',' || byte == ';'; }

/// Unit by unit, so that places stay; what is not ASCII is in no number, whatever it becomes.
std::string Narrowed(StringView text) {
  std::string bytes(text.size(), '\0');
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char16_t unit) { return static_cast<char>(unit < 0x80 ? unit : 0xFF); });
  return bytes;
}

/// The digits at the front, which are taken off.
std::string_view TakeDigits(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), scpi::IsDigit);
  const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  return digits;
}

bool TakeSign(std::string_view& text) {
  const bool minus = text.starts_with('-');
  if (minus || text.starts_with('+')) text.remove_prefix(1);
  return minus;
}

/// A decimal number that no double holds: an overload, or 0. None if it is no number at all.
std::optional<double> ReadBeyondRange(std::string_view text) {
  const bool minus = TakeSign(text);
  const std::string_view whole = TakeDigits(text);
  std::string_view fraction;
  if (text.starts_with('.')) {
    text.remove_prefix(1);
    fraction = TakeDigits(text);
  }
  if (whole.empty() && fraction.empty()) return {};
  constexpr std::int64_t farBeyond = std::int64_t{1} << 60; // however many digits stand in front
  std::int64_t exponent = 0;
  if (text.starts_with('e') || text.starts_with('E')) {
    text.remove_prefix(1);
    const bool negative = TakeSign(text);
    const std::string_view digits = TakeDigits(text);
    if (digits.empty()) return {};
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (result.ec != std::errc{} || exponent > farBeyond) exponent = farBeyond;
    if (negative) exponent = -exponent;
  }
  if (!text.empty()) return {};
  // Where the first digit that counts stands, in front of the point or behind it.
  const std::size_t first = std::min(whole.find_first_not_of('0'), whole.size());
  const std::int64_t power =
      first < whole.size() ? static_cast<std::int64_t>(whole.size() - first)
                           : -static_cast<std::int64_t>(std::min(fraction.find_first_not_of('0'), fraction.size()));
  const double size = power + exponent > 0 ? Overload : 0;
  return minus ? -size : size;
}

/// `#H`, `#Q` or `#B` with its digits.
std::optional<double> ReadNonDecimal(std::string_view text) {
  if (text.size() < 3) return {};
  const char letter = static_cast<char>(text[1] & ~0x20); // upper case
  const int base = letter == 'H' ? 16 : letter == 'Q' ? 8 : letter == 'B' ? 2 : 0;
  if (base == 0) return {};
  std::uint64_t number = 0;
  const auto [end, fault] = std::from_chars(text.data() + 2, text.data() + text.size(), number, base);
  if (fault != std::errc{} || end != text.data() + text.size()) return {};
  return static_cast<double>(number);
}

std::optional<double> ReadOne(std::string_view text) {
  if (const auto number = ReadDecimal(text)) return ValueOf(*number);
  return text.starts_with('#') ? ReadNonDecimal(text) : ReadBeyondRange(text);
}

/// "Number 3, at character 7, is none: ON"
Fault FaultAt(StringView answer, std::size_t place, std::size_t length, std::size_t before) {
  if (answer.empty()) return {0, u"The answer is empty."};
  Fault fault{place, u"Number " + Counted(before + 1) + u", at character " + Counted(place + 1) + u", is "};
  if (length == 0) {
    fault.Text += u"missing.";
    return fault;
  }
  fault.Text += u"none: " + String(answer.substr(place, std::min(length, LongestQuote)));
  if (length > LongestQuote) fault.Text += u'\u2026';
  return fault;
}

} // namespace

std::variant<Values, Fault> ReadNumberList(StringView answer) {
  const std::string text = Narrowed(answer);
  Values values;
  for (auto from = text.begin();;) {
    const auto separator = std::find_if(from, text.end(), IsSeparator);
    while (from != separator && IsWhiteSpace(*from)) ++from;
    auto to = separator;
    while (to != from && IsWhiteSpace(to[-1])) --to;
    const auto value = ReadOne({from, to});
    if (!value) {
      return FaultAt(answer, static_cast<std::size_t>(from - text.begin()), static_cast<std::size_t>(to - from),
                     values.size());
    }
    values.push_back(*value);
    if (separator == text.end()) return values;
    from = separator + 1;
  }
}

} // namespace portico::numbers
