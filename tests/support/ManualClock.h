#pragma once

#include "drivers/IClock.h"

#include <algorithm>

namespace portico::test {

/// Time that passes only where somebody sleeps or the test says so.
class ManualClock final : public IClock {
public:
  TimePoint Now() const override { return now_; }
  void SleepUntil(TimePoint moment) override { now_ = std::max(now_, moment); }
  void Advance(std::chrono::milliseconds time) { now_ += time; }

private:
  TimePoint now_ = TimePoint(std::chrono::hours(1));
};

} // namespace portico::test
