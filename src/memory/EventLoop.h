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
  /// Whether turns throw `Quit`.
  bool IsQuitting() const noexcept { return m_quit && !m_finished; }
  /// `Quit` has arrived where the program ends: from now on a turn does nothing and throws nothing, so that what is
  /// left to do at the end can be done.
  void FinishQuit() noexcept { m_finished = true; }

private:
  class LoopTimer;

  void ThrowIfQuitting() const;
  /// The enabled timer that is due first; none if nothing is running.
  LoopTimer* NextTimer() const;

  Clock& m_clock;
  std::vector<LoopTimer*> m_timers;
  std::atomic<bool> m_quit = false;
  bool m_finished = false;
};

} // namespace portico::memory
