#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <utility>
#include <vector>

namespace portico {

/// The middle of what was measured, which is not empty.
inline double Median(std::vector<double> samples) {
  const auto middle = samples.begin() + static_cast<std::ptrdiff_t>(samples.size() / 2);
  std::nth_element(samples.begin(), middle, samples.end());
  return *middle;
}

/// What a piece of work takes of processor time, which other programs do not disturb.
template <class Work>
double Milliseconds(Work&& work) {
  const std::clock_t start = std::clock();
  std::forward<Work>(work)();
  return static_cast<double>(std::clock() - start) * 1000 / CLOCKS_PER_SEC;
}

} // namespace portico
