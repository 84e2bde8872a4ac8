#pragma once

#include "memory/Clock.h"
#include "system/WakePipe.h"

#include <chrono>
#include <optional>

namespace portico::memory {

/// The system's clock.
class SystemClock final : public Clock {
public:
  TimePoint Now() const override { return std::chrono::steady_clock::now(); }
  void WaitUntil(std::optional<TimePoint> deadline) override;
  void Wake() noexcept override { m_pipe.Wake(); }

private:
  system::WakePipe m_pipe;
};

} // namespace portico::memory
