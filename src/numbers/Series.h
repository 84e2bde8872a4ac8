#pragma once

#include "numbers/Pyramid.h"
#include "numbers/Range.h"
#include "numbers/Statistics.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace portico::numbers {

/// A curve: values, each at its place on an axis, in seconds or as an index. It grows at its end, at a constant cost
/// for each value. It takes at most 36 bytes a value: 8 for the place, 8 for the value and 1.7 for extremes and
/// moments, all doubled by what vectors reserve.
class Series {
public:
  /// What a column of pixels shows of the curve.
  struct Column {
    /// The values from here to in front of Last are in the column; a line enters at the first and leaves at the last.
    std::size_t First;
    std::size_t Last;
    Extremes Values; ///< of these
  };

  /// A place in front of that of the value before, as when a clock was set back, becomes that one; so does NaN.
  void Append(double place, double value);

  std::size_t Size() const { return m_places.size(); }
  bool Empty() const { return m_places.empty(); }
  double Place(std::size_t index) const { return m_places[index]; }
  double Value(std::size_t index) const { return m_values.Values()[index]; }

  /// From the first place to the last; both 0 if there is none.
  Range Whole() const;

  /// Which values are within the range: from the first to in front of the second.
  std::pair<std::size_t, std::size_t> Within(const Range& range) const;
  Extremes Over(const Range& range) const;
  /// Costs a step for each thousand values.
  Statistics StatisticsOver(const Range& range) const;

  /// The range in columns of equal width, from left to right. A value on the border of two belongs to the right one;
  /// one at the end of the range to the last. Costs some hundred steps for each column, however many values there are.
  /// A range that is not wide has empty columns.
  std::vector<Column> Reduce(const Range& range, std::size_t columns) const;

  /// Of memory, what is reserved included.
  std::size_t Bytes() const;

private:
  static constexpr std::size_t StretchSize = 1024;

  std::vector<double> m_places; // never less than the one before
  Pyramid m_values;
  std::vector<Moments> m_stretches; // each of so many values; those that fill none are left out
};

} // namespace portico::numbers
