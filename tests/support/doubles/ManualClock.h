#pragma once

#include "drivers/IClock.h"
#include "memory/Clock.h"

#include <chrono>
#include <functional>
#include <optional>

namespace portico::test {

/// The time of drivers and event loops, which passes only where somebody sleeps, waits to a deadline or the test says
/// so.
class ManualClock final : public drivers::IClock, public memory::Clock {
public:
  using TimePoint = memory::Clock::TimePoint;

  TimePoint Now() const override;
  void Advance(std::chrono::milliseconds time);
  void SleepUntil(TimePoint moment) override;
  /// Without a deadline, and nothing to wake it, calls `OnIdle`; a wait that nobody could end is a logic error.
  void WaitUntil(std::optional<TimePoint> deadline) override;
  void Wake() noexcept override;

  /// Called before each wait with what is to be waited, -1 for ever.
  std::function<void(std::chrono::milliseconds)> OnWait;
  std::function<void()> OnIdle;

private:
  TimePoint m_now{};
  bool m_woken = false;
};

} // namespace portico::test
