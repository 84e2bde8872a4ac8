#pragma once

#include "numbers/SpecialValues.h"

#include <algorithm>

namespace portico::numbers {

/// The smallest and the largest of some values, and which marks are among them.
struct Extremes {
  /// Of what is neither gap nor overload; more than the maximum if there is nothing else.
  double Minimum = Overload;
  double Maximum = -Overload;
  bool Gaps = false;
  bool High = false; ///< overloads, upwards
  bool Low = false;  ///< overloads, downwards

  bool HasValues() const { return Minimum <= Maximum; }

  void Add(double value) {
    if (std::isfinite(value)) {
      Minimum = std::min(Minimum, value);
      Maximum = std::max(Maximum, value);
    } else {
      (IsGap(value) ? Gaps : value > 0 ? High : Low) = true;
    }
  }
  void Add(const Extremes& more) {
    Minimum = std::min(Minimum, more.Minimum);
    Maximum = std::max(Maximum, more.Maximum);
    Gaps |= more.Gaps;
    High |= more.High;
    Low |= more.Low;
  }

  bool operator==(const Extremes&) const = default;
};

} // namespace portico::numbers
