#include "memory/EventLoop.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"

#include <algorithm>

namespace portico::memory {
namespace {

constexpr std::int32_t LongestInterval = 65535;

} // namespace

class EventLoop::LoopTimer final : public ITimer {
public:
  explicit LoopTimer(EventLoop& loop) : m_loop(loop) { m_loop.m_timers.push_back(this); }
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;
  ~LoopTimer() override { std::erase(m_loop.m_timers, this); }

  void Interval(std::int32_t milliseconds) override {
    if (milliseconds < 0 || milliseconds > LongestInterval) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
    m_interval = std::chrono::milliseconds(milliseconds);
    Restart();
  }
  void Enabled(bool newValue) override {
    if (newValue && !m_enabled) Restart();
    m_enabled = newValue;
  }
  bool Enabled() const override { return m_enabled; }
  Event<>& Timer() override { return m_event; }

  bool IsRunning() const { return m_enabled && m_interval.count() > 0; }
  Clock::TimePoint Due() const { return m_due; }
  void Fire() {
    Restart();
    m_event();
  }

private:
  void Restart() { m_due = m_loop.m_clock.Now() + m_interval; }

  EventLoop& m_loop;
  std::chrono::milliseconds m_interval{0};
  bool m_enabled = false;
  Clock::TimePoint m_due;
  Event<> m_event;
};

void EventLoop::ThrowIfQuitting() const {
  if (IsQuitting()) throw Quit{};
}

EventLoop::LoopTimer* EventLoop::NextTimer() const {
  LoopTimer* next = nullptr;
  for (LoopTimer* timer : m_timers) {
    if (timer->IsRunning() && (next == nullptr || timer->Due() < next->Due())) next = timer;
  }
  return next;
}

void EventLoop::DoEvents() {
  if (m_finished) return;
  ThrowIfQuitting();
  // Against one reading of the clock, so that a handler which takes longer than an interval cannot hold the turn.
  const auto now = m_clock.Now();
  for (LoopTimer* timer = NextTimer(); timer != nullptr && timer->Due() <= now; timer = NextTimer()) timer->Fire();
  ThrowIfQuitting();
}

void EventLoop::WaitForEvent() {
  if (m_finished) return;
  ThrowIfQuitting();
  const LoopTimer* next = NextTimer();
  m_clock.WaitUntil(next != nullptr ? std::optional(next->Due()) : std::nullopt);
  DoEvents();
}

std::unique_ptr<ITimer> EventLoop::MakeTimer() { return std::make_unique<LoopTimer>(*this); }

void EventLoop::RequestQuit() noexcept {
  m_quit = true;
  m_clock.Wake();
}

} // namespace portico::memory
