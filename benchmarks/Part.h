#pragma once

#include <algorithm>

namespace portico {

/// How much of its work a benchmark does: all of it where it measures; a hundredth, but at least one, where the tests
/// see that it still runs.
template <class Number>
constexpr Number Part(Number all) {
  return std::max<Number>(1, all / PORTICO_BENCHMARK_PARTS);
}

} // namespace portico
