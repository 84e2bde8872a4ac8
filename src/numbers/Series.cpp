#include "numbers/Series.h"

#include <algorithm>
#include <cmath>

namespace portico::numbers {

void Series::Append(double place, double value) {
  if (!m_places.empty() && !(place >= m_places.back())) place = m_places.back();
  m_places.push_back(place);
  m_values.Append(value);
  if (Size() % StretchSize == 0) m_stretches.push_back(MomentsOf(m_values.Values().last(StretchSize)));
}

Range Series::Whole() const {
  if (m_places.empty()) return {};
  return {m_places.front(), m_places.back()};
}

std::pair<std::size_t, std::size_t> Series::Within(const Range& range) const {
  const auto first = std::lower_bound(m_places.begin(), m_places.end(), range.From);
  const auto last = std::upper_bound(first, m_places.end(), range.To);
  return {static_cast<std::size_t>(first - m_places.begin()), static_cast<std::size_t>(last - m_places.begin())};
}

Statistics Series::StatisticsOver(const Range& range) const {
  const auto [first, last] = Within(range);
  const auto values = m_values.Values();
  const std::size_t firstWhole = (first + StretchSize - 1) / StretchSize;
  const std::size_t endOfWhole = last / StretchSize;
  if (firstWhole >= endOfWhole) return StatisticsOf(values.subspan(first, last - first));
  std::vector<Moments> parts(m_stretches.begin() + static_cast<std::ptrdiff_t>(firstWhole),
                             m_stretches.begin() + static_cast<std::ptrdiff_t>(endOfWhole));
  parts.push_back(MomentsOf(values.subspan(first, firstWhole * StretchSize - first)));
  parts.push_back(MomentsOf(values.subspan(endOfWhole * StretchSize, last - endOfWhole * StretchSize)));
  return StatisticsOf(parts);
}

Extremes Series::Over(const Range& range) const {
  const auto [first, last] = Within(range);
  return m_values.Over(first, last);
}

std::vector<Series::Column> Series::Reduce(const Range& range, std::size_t columns) const {
  std::vector<Column> reduced(columns);
  if (!range.IsWide()) return reduced;
  auto [first, end] = Within(range);
  const auto stop = m_places.begin() + static_cast<std::ptrdiff_t>(end);
  for (std::size_t i = 0; i < columns; ++i) {
    std::size_t last = end;
    if (i + 1 < columns) {
      const double border = std::lerp(range.From, range.To, static_cast<double>(i + 1) / static_cast<double>(columns));
      const auto from = m_places.begin() + static_cast<std::ptrdiff_t>(first);
      last = static_cast<std::size_t>(std::lower_bound(from, stop, border) - m_places.begin());
    }
    reduced[i] = {first, last, m_values.Over(first, last)};
    first = last;
  }
  return reduced;
}

std::size_t Series::Bytes() const {
  return m_places.capacity() * sizeof(double) + m_values.Bytes() + m_stretches.capacity() * sizeof(Moments);
}

} // namespace portico::numbers
