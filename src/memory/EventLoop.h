#pragma once

#include "memory/Clock.h"
#include "platform/IEventLoop.h"

#include <atomic>
#include <vector>

namespace portico::memory {

/// An event loop without a window: its events are timers, and the order to quit.
class EventLoop final : public IEventLoop {
public:
  /// The clock must outlive the loop.
  explicit EventLoop(Clock& clock) : m_clock(clock) {}

  void DoEvents() override;
  void WaitForEvent() override;
  std::unique_ptr<ITimer> MakeTimer() override;

  /// Safe in a signal handler.
  void RequestQuit() noexcept override;

private:
  class LoopTimer;

  void ThrowIfQuitting() const;
  /// The enabled timer that is due first; none if nothing is running.
  LoopTimer* NextTimer() const;

  Clock& m_clock;
  std::vector<LoopTimer*> m_timers;
  std::atomic<bool> m_quit = false;
};

} // namespace portico::memory
