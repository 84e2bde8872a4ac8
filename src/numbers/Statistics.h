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

/// Right to a few units in the last place, however far from 0 the values lie.
Statistics StatisticsOf(std::span<const double> values);

} // namespace portico::numbers
