#include "logtool/SameAnswer.h"

#include "numbers/NumberList.h"
#include "numbers/Quantities.h"
#include "numbers/SpecialValues.h"

#include <algorithm>
#include <cmath>

namespace portico::logtool {
namespace {

constexpr bool IsWordUnit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') ||
         unit == u'_' || unit == u'.';
}

double ValueOf(StringView number) { return std::get<numbers::Values>(numbers::ReadNumberList(number)).front(); }

bool AreNear(double a, double b, double tolerance) {
  if (numbers::IsGap(a) || numbers::IsGap(b)) return numbers::IsGap(a) && numbers::IsGap(b);
  if (numbers::IsOverload(a) || numbers::IsOverload(b)) return a == b;
  return std::abs(a - b) <= tolerance * std::max(std::abs(a), std::abs(b));
}

} // namespace

std::optional<std::size_t> FindDifference(StringView a, StringView b, std::optional<double> tolerance) {
  std::size_t i = 0;
  std::size_t j = 0;
  bool inWord = false; // a number begins with no word in front of it
  while (i < a.size() && j < b.size()) {
    if (tolerance && !inWord) {
      const std::size_t first = numbers::LengthOfNumber(a.substr(i));
      const std::size_t second = numbers::LengthOfNumber(b.substr(j));
      if (first > 0 && second > 0) {
        if (!AreNear(ValueOf(a.substr(i, first)), ValueOf(b.substr(j, second)), *tolerance)) return i;
        i += first;
        j += second;
        inWord = true;
        continue;
      }
    }
    if (a[i] != b[j]) return i;
    inWord = IsWordUnit(a[i]);
    ++i;
    ++j;
  }
  if (i == a.size() && j == b.size()) return {};
  return i;
}

} // namespace portico::logtool
