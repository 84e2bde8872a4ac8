#pragma once

#include <chrono>
#include <optional>

namespace portico::memory {

/// The monotonic time that an event loop runs on, and the wait on it.
class Clock {
public:
  using TimePoint = std::chrono::steady_clock::time_point;

  virtual ~Clock() = default;
  virtual TimePoint Now() const = 0;
  /// Returns at the deadline or when woken, whichever comes first; without a deadline only when woken.
  virtual void WaitUntil(std::optional<TimePoint> deadline) = 0;
  /// Ends a wait that is under way, or the next one. Safe in a signal handler.
  virtual void Wake() noexcept = 0;
};

} // namespace portico::memory
