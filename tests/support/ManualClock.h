#pragma once

#include "drivers/IClock.h"

#include <algorithm>

namespace portico::test {

/// Time that passes only where somebody sleeps or the test says so.
class ManualClock final : public IClock {
public:
  TimePoint Now() const override { return m_now; }
  void SleepUntil(TimePoint moment) override { m_now = std::max(m_now, moment); }
  void Advance(std::chrono::milliseconds time) { m_now += time; }

private:
  TimePoint m_now = TimePoint(std::chrono::hours(1));
};

} // namespace portico::test
