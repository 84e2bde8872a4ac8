#pragma once

#include <cstdint>

namespace portico::timing {

/// Which of `count` values in their order, the smallest being 1, so many percent of them do not exceed; 0 of none.
constexpr std::uint64_t NearestRank(std::uint64_t count, std::uint64_t percent) {
  return count / 100 * percent + (count % 100 * percent + 99) / 100;
}

} // namespace portico::timing
