#include "timing/DurationHistogram.h"

#include "timing/NearestRank.h"

#include <algorithm>
#include <bit>

namespace portico::timing {
namespace {

constexpr unsigned ClassBits = 6;
constexpr std::uint64_t ClassesOfAnOctave = 1U << ClassBits;

/// The figures behind the leading 64 to 127 of a number; none of a smaller one, which is a class of its own.
unsigned Shift(std::uint64_t number) {
  return number < ClassesOfAnOctave ? 0 : static_cast<unsigned>(std::bit_width(number)) - ClassBits - 1;
}

std::size_t ClassOf(std::uint64_t number) {
  const unsigned shift = Shift(number);
  return shift * ClassesOfAnOctave + (number >> shift);
}

std::uint64_t MiddleOf(std::size_t index) {
  if (index < ClassesOfAnOctave) return index;
  const std::size_t shift = index / ClassesOfAnOctave - 1;
  const std::uint64_t width = std::uint64_t{1} << shift;
  return (index - shift * ClassesOfAnOctave) * width + width / 2;
}

} // namespace

void DurationHistogram::Add(Duration duration) {
  duration = std::max(duration, Duration::zero());
  m_minimum = m_count == 0 ? duration : std::min(m_minimum, duration);
  m_maximum = std::max(m_maximum, duration);
  const std::size_t index = ClassOf(static_cast<std::uint64_t>(duration.count()));
  Reach(index);
  ++m_counts[index - m_first];
  ++m_count;
}

void DurationHistogram::Reach(std::size_t index) {
  if (m_counts.empty()) m_first = index;
  if (index < m_first) {
    m_counts.insert(m_counts.begin(), m_first - index, 0);
    m_first = index;
  }
  if (index - m_first >= m_counts.size()) m_counts.resize(index - m_first + 1);
}

DurationHistogram::Duration DurationHistogram::Percentile(unsigned percent) const {
  const std::uint64_t rank = NearestRank(m_count, percent);
  if (rank == m_count) return m_maximum;
  std::size_t index = m_first;
  std::uint64_t passed = 0;
  for (const std::uint64_t count : m_counts) {
    passed += count;
    if (passed >= rank) break;
    ++index;
  }
  return std::clamp(Duration(static_cast<Duration::rep>(MiddleOf(index))), m_minimum, m_maximum);
}

} // namespace portico::timing
