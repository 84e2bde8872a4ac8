#pragma once

#include <chrono>

namespace portico::drivers {

/// A moment on a clock that never runs backwards; a deadline is one too.
using TimePoint = std::chrono::steady_clock::time_point;

/// What the drivers measure time-outs with, and what a simulated instrument's answers take their time on.
class IClock {
public:
  virtual ~IClock() = default;

  virtual TimePoint Now() const = 0;

  /// Blocks until `moment`; returns at once if that is past, and before if the program is to end.
  virtual void SleepUntil(TimePoint moment) = 0;
};

} // namespace portico::drivers
