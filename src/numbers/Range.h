#pragma once

#include <cmath>

namespace portico::numbers {

/// A stretch of an axis, both ends included.
struct Range {
  double From = 0;
  double To = 0;

  /// Whether it may be shown: something lies between its ends, and a double holds how much.
  bool IsWide() const { return From < To && std::isfinite(To - From); }

  bool operator==(const Range&) const = default;
};

} // namespace portico::numbers
