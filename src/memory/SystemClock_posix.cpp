#include "memory/SystemClock.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include <poll.h>

namespace portico::memory {

void SystemClock::WaitUntil(std::optional<TimePoint> deadline) {
  pollfd wake{m_pipe.Descriptor(), POLLIN, 0};
  timespec rest{};
  if (deadline) {
    const auto left = std::max(*deadline - Now(), TimePoint::duration::zero());
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    rest.tv_sec = seconds.count();
    rest.tv_nsec = static_cast<long>(std::chrono::nanoseconds(left - seconds).count());
  }
  if (ppoll(&wake, 1, deadline ? &rest : nullptr, nullptr) > 0) m_pipe.Drain();
}

} // namespace portico::memory
