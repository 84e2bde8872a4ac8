#include "support/doubles/ManualClock.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace portico::test {

using std::chrono::milliseconds;

ManualClock::TimePoint ManualClock::Now() const { return m_now; }

void ManualClock::Advance(milliseconds time) { m_now += time; }

void ManualClock::SleepUntil(TimePoint moment) { m_now = std::max(m_now, moment); }

void ManualClock::WaitUntil(std::optional<TimePoint> deadline) {
  if (OnWait) OnWait(deadline ? std::chrono::duration_cast<milliseconds>(*deadline - m_now) : milliseconds(-1));
  if (std::exchange(m_woken, false)) return;
  if (deadline) {
    SleepUntil(*deadline);
  } else if (OnIdle) {
    OnIdle();
  } else {
    throw std::logic_error("a wait that nothing can end");
  }
}

void ManualClock::Wake() noexcept { m_woken = true; }

} // namespace portico::test
