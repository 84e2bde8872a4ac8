#pragma once

#include <cmath>
#include <limits>

namespace portico::numbers {

// A value is a double throughout: NaN is a gap, where the instrument has no value, and an infinity is an overload to
// that side.

inline constexpr double Gap = std::numeric_limits<double>::quiet_NaN();
inline constexpr double Overload = std::numeric_limits<double>::infinity();

inline bool IsGap(double value) { return std::isnan(value); }
inline bool IsOverload(double value) { return std::isinf(value); }

/// The value that a number of an answer stands for: 9.91E37 is a gap, 9.9E37 and -9.9E37 are overloads, as SCPI-99 has
/// it; so are these numbers with the rounding of a 32-bit float.
double ValueOf(double number);

} // namespace portico::numbers
