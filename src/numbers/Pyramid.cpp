#include "numbers/Pyramid.h"

namespace portico::numbers {
namespace {

constexpr std::size_t GroupSize = 16;

/// Of the last group.
template <class Item>
Extremes LastOf(const std::vector<Item>& items) {
  Extremes extremes;
  for (std::size_t i = items.size() - GroupSize; i < items.size(); ++i) extremes.Add(items[i]);
  return extremes;
}

/// Adds what stands at the ends of a stretch and fills no group, and leaves the groups between.
template <class Item>
void AddEnds(Extremes& extremes, const std::vector<Item>& items, std::size_t& first, std::size_t& last) {
  while (first < last && first % GroupSize != 0) extremes.Add(items[first++]);
  while (first < last && last % GroupSize != 0) extremes.Add(items[--last]);
  first /= GroupSize;
  last /= GroupSize;
}

} // namespace

void Pyramid::Append(double value) {
  m_values.push_back(value);
  std::size_t count = m_values.size();
  for (std::size_t level = 0; count % GroupSize == 0; ++level, count /= GroupSize) {
    if (level == m_levels.size()) m_levels.emplace_back();
    m_levels[level].push_back(level == 0 ? LastOf(m_values) : LastOf(m_levels[level - 1]));
  }
}

Extremes Pyramid::Over(std::size_t first, std::size_t last) const {
  Extremes extremes;
  AddEnds(extremes, m_values, first, last);
  for (std::size_t level = 0; first < last; ++level) AddEnds(extremes, m_levels[level], first, last);
  return extremes;
}

std::size_t Pyramid::Bytes() const {
  std::size_t bytes = m_values.capacity() * sizeof(double);
  for (const auto& level : m_levels) bytes += level.capacity() * sizeof(Extremes);
  return bytes;
}

} // namespace portico::numbers
