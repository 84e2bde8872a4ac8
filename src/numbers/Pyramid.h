#pragma once

#include "numbers/Extremes.h"

#include <cstddef>
#include <span>
#include <vector>

namespace portico::numbers {

/// Values in a row, and the extremes of each sixteen of them, of each sixteen of these, and so on, so that those of any
/// stretch are told from a few. An append costs a constant, spread over all; the extremes take a fifth of what the
/// values take.
class Pyramid {
public:
  void Append(double value);

  std::span<const double> Values() const { return m_values; }

  /// Of the values from `first` to in front of `last`, which must be at most the size.
  Extremes Over(std::size_t first, std::size_t last) const;

  /// Of memory, what is reserved included.
  std::size_t Bytes() const;

private:
  std::vector<double> m_values;
  /// Of whole groups only, the smallest first; each level's groups are of those below.
  std::vector<std::vector<Extremes>> m_levels;
};

} // namespace portico::numbers
