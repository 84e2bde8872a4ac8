#pragma once

#include "numbers/SpecialValues.h"

#include <cstddef>
#include <span>

namespace portico::numbers {

/// Of values, without gaps and overloads, which are counted apart. What does not exist is NaN.
struct Statistics {
  std::size_t Count = 0;
  std::size_t Gaps = 0;
  std::size_t Overloads = 0;
  double Minimum = Gap;
  double Maximum = Gap;
  double Mean = Gap;
  /// Of a sample: over one less than the count, so that two values are the least. An overload if no double holds it.
  double StandardDeviation = Gap;
};

/// What statistics are made of: those of the stretches of a curve make up those of the whole.
struct Moments {
  std::size_t Count = 0; ///< of values, without gaps and overloads
  std::size_t Gaps = 0;
  std::size_t Overloads = 0;
  double Minimum = Overload; ///< more than the maximum if there is no value
  double Maximum = -Overload;
  int Exponent = 0;   ///< what follows is in units of this power of two, so that no square leaves a double's range
  double Sum = 0;     ///< of the values
  double Lost = 0;    ///< what rounding took from the sum
  double Squares = 0; ///< of what each value differs from the mean, added up
};

Moments MomentsOf(std::span<const double> values);

/// Of all that the moments were taken of. Right to a few units in the last place, however far from 0 the values lie.
Statistics StatisticsOf(std::span<const Moments> parts);
Statistics StatisticsOf(std::span<const double> values);

} // namespace portico::numbers
