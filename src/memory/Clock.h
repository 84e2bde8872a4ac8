#pragma once

#include <chrono>
#include <functional>
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

/// Time that stands still until somebody moves it: a wait reaches its deadline at once.
class ManualClock final : public Clock {
public:
  TimePoint Now() const override { return m_now; }
  void Advance(std::chrono::milliseconds duration) { m_now += duration; }
  /// Without a deadline, and nothing to wake it, calls `OnIdle`; without that the wait throws `std::logic_error`.
  void WaitUntil(std::optional<TimePoint> deadline) override;
  void Wake() noexcept override { m_woken = true; }

  std::function<void()> OnIdle;

private:
  TimePoint m_now{};
  bool m_woken = false;
};

} // namespace portico::memory
