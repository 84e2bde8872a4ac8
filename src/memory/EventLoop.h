#pragma once

#include "memory/Clock.h"
#include "platform/shared/EventLoopBase.h"

#include <memory>
#include <vector>

namespace portico::memory {

/// An event loop without a window: its events are timers, and the order to quit.
class EventLoop final : public EventLoopBase {
public:
  /// The clock must outlive the loop.
  explicit EventLoop(Clock& clock) : m_clock(clock) {}

  std::unique_ptr<ITimer> MakeTimer() override;

private:
  class LoopTimer;

  void Process() override;
  void Wait() override;
  void Wake() noexcept override { m_clock.Wake(); }
  /// The enabled timer that is due first; none if nothing is running.
  LoopTimer* NextTimer() const;

  Clock& m_clock;
  std::vector<LoopTimer*> m_timers;
};

} // namespace portico::memory
