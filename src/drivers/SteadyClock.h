#pragma once

#include "drivers/IClock.h"

#include <thread>

namespace portico::drivers {

/// The real time.
class SteadyClock final : public IClock {
public:
  TimePoint Now() const override { return std::chrono::steady_clock::now(); }
  void SleepUntil(TimePoint moment) override { std::this_thread::sleep_until(moment); }
};

} // namespace portico::drivers
