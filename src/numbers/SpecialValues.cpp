#include "numbers/SpecialValues.h"

namespace portico::numbers {
namespace {

// SCPI-99, volume 1, 7.2.1.4 and 7.2.1.5.
constexpr double Infinite = 9.9E37;
constexpr double NotANumber = 9.91E37;

/// More than a float rounds, and much less than lies between the two.
constexpr double Rounding = 1E-6;

bool IsNearly(double number, double mark) { return std::abs(number - mark) <= mark * Rounding; }

} // namespace

double ValueOf(double number) {
  if (std::abs(number) < Infinite / 2) return number; // nearly all
  if (IsNearly(number, NotANumber)) return Gap;
  return IsNearly(std::abs(number), Infinite) ? std::copysign(Overload, number) : number;
}

} // namespace portico::numbers
