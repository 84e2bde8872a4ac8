#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace portico::timing {

/// How often which duration came up. Each octave of nanoseconds has 64 classes, so that the memory is bounded, by 30
/// KB, whatever is counted, and a percentile at most 1 percent off.
class DurationHistogram {
public:
  using Duration = std::chrono::nanoseconds;

  /// A negative one counts as 0.
  void Add(Duration duration);

  std::uint64_t Count() const { return m_count; }
  /// Exact; 0 of none.
  Duration Maximum() const { return m_maximum; }
  /// The nearest rank, 1 to 100 percent; 0 of none. Exact where that is the largest, and never beyond the smallest.
  Duration Percentile(unsigned percent) const;

private:
  /// Makes room for the class.
  void Reach(std::size_t index);

  std::vector<std::uint64_t> m_counts; // of the classes from m_first on
  std::size_t m_first = 0;
  std::uint64_t m_count = 0;
  Duration m_minimum{};
  Duration m_maximum{};
};

} // namespace portico::timing
