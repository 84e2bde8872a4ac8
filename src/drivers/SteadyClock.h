#pragma once

#include "drivers/IClock.h"
#include "system/Cancellation.h"

namespace portico::drivers {

/// The real time.
class SteadyClock final : public IClock {
public:
  /// `cancellation` may be null, or must outlive the clock.
  explicit SteadyClock(const system::Cancellation* cancellation = nullptr) : m_cancellation(cancellation) {}

  TimePoint Now() const override { return std::chrono::steady_clock::now(); }
  void SleepUntil(TimePoint moment) override;

private:
  const system::Cancellation* const m_cancellation;
};

} // namespace portico::drivers
