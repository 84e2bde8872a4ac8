#include "numbers/Quantities.h"

#include "numbers/NumberList.h"
#include "numbers/Syntax.h"

#include <algorithm>

namespace portico::numbers {
namespace {

constexpr bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }
constexpr bool IsLetter(char16_t unit) { return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z'); }
/// Percent, degree, micro and ohm, which some instruments write though the standard has letters for them.
constexpr bool IsSign(char16_t unit) {
  return StringView(u"%\u00B0\u00B5\u03BC\u2126\u03A9").find(unit) != StringView::npos;
}

std::size_t SkipDigits(StringView text, std::size_t from) {
  while (from < text.size() && IsDigit(text[from])) ++from;
  return from;
}

std::size_t SkipSign(StringView text, std::size_t from) {
  return from < text.size() && (text[from] == u'+' || text[from] == u'-') ? from + 1 : from;
}

bool IsUnit(StringView text) {
  if (text.empty()) return true;
  if (!IsLetter(text.front()) && !IsSign(text.front()) && text.front() != u'/') return false;
  return std::all_of(text.begin(), text.end(), [](char16_t unit) {
    return IsLetter(unit) || IsSign(unit) || IsDigit(unit) || StringView(u"./-").find(unit) != StringView::npos;
  });
}

std::optional<Quantity> ReadOne(StringView text) {
  const std::size_t end = text.starts_with(u'#') ? text.size() : LengthOfNumber(text);
  const StringView number = text.substr(0, end);
  const StringView unit = Stripped(text.substr(end));
  const auto values = ReadNumberList(number);
  const auto* value = std::get_if<Values>(&values);
  if (value == nullptr || !IsUnit(unit)) return {};
  return Quantity{number, value->front(), unit};
}

} // namespace

std::size_t LengthOfNumber(StringView text) {
  const std::size_t whole = SkipSign(text, 0);
  std::size_t end = SkipDigits(text, whole);
  std::size_t digits = end - whole;
  if (end < text.size() && text[end] == u'.') {
    const std::size_t fraction = end + 1;
    end = SkipDigits(text, fraction);
    digits += end - fraction;
  }
  if (digits == 0) return 0;
  if (end < text.size() && (text[end] == u'E' || text[end] == u'e')) {
    const std::size_t exponent = SkipSign(text, end + 1);
    if (SkipDigits(text, exponent) > exponent) end = SkipDigits(text, exponent);
  }
  return end;
}

std::optional<std::vector<Quantity>> ReadQuantities(StringView answer) {
  std::vector<Quantity> quantities;
  while (true) {
    const std::size_t separator = std::min(answer.find_first_of(u",;"), answer.size());
    const auto quantity = ReadOne(Stripped(answer.substr(0, separator)));
    if (!quantity) return {};
    quantities.push_back(*quantity);
    if (separator == answer.size()) return quantities;
    answer.remove_prefix(separator + 1);
  }
}

} // namespace portico::numbers
