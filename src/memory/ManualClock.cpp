#include "memory/Clock.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

namespace portico::memory {

void ManualClock::WaitUntil(std::optional<TimePoint> deadline) {
  if (std::exchange(m_woken, false)) return;
  if (deadline) {
    m_now = std::max(m_now, *deadline);
  } else if (OnIdle) {
    OnIdle();
  } else {
    throw std::logic_error("a wait that nothing can end");
  }
}

} // namespace portico::memory
