#include "memory/EventLoop.h"

#include "platform/shared/TimerState.h"

#include <chrono>
#include <optional>

namespace portico::memory {

class EventLoop::LoopTimer final : public TimerState {
public:
  explicit LoopTimer(EventLoop& loop) : m_loop(loop) { m_loop.m_timers.push_back(this); }
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;
  ~LoopTimer() override { std::erase(m_loop.m_timers, this); }

  using TimerState::IsRunning;
  Clock::TimePoint Due() const { return m_due; }
  void Fire() {
    Restart();
    Timer()();
  }

private:
  void Restart() override { m_due = m_loop.m_clock.Now() + std::chrono::milliseconds(Interval()); }

  EventLoop& m_loop;
  Clock::TimePoint m_due;
};

EventLoop::LoopTimer* EventLoop::NextTimer() const {
  LoopTimer* next = nullptr;
  for (LoopTimer* timer : m_timers) {
    if (timer->IsRunning() && (next == nullptr || timer->Due() < next->Due())) next = timer;
  }
  return next;
}

void EventLoop::Process() {
  // Against one reading of the clock, so that a handler which takes longer than an interval cannot hold the turn.
  const auto now = m_clock.Now();
  for (LoopTimer* timer = NextTimer(); timer != nullptr && timer->Due() <= now; timer = NextTimer()) timer->Fire();
}

void EventLoop::Wait() {
  const LoopTimer* next = NextTimer();
  m_clock.WaitUntil(next != nullptr ? std::optional(next->Due()) : std::nullopt);
  DoEvents();
}

std::unique_ptr<ITimer> EventLoop::MakeTimer() { return std::make_unique<LoopTimer>(*this); }

} // namespace portico::memory
