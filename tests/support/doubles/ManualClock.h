#pragma once

#include "drivers/IClock.h"

#include <algorithm>

namespace portico::test {

/// Time that passes only where somebody sleeps or the test says so.
class ManualClock final : public drivers::IClock {
public:
  drivers::TimePoint Now() const override { return m_now; }
  void SleepUntil(drivers::TimePoint moment) override { m_now = std::max(m_now, moment); }
  void Advance(std::chrono::milliseconds time) { m_now += time; }

private:
  drivers::TimePoint m_now = drivers::TimePoint(std::chrono::hours(1));
};

} // namespace portico::test
