#include "drivers/SteadyClock.h"

#include "system/DescriptorWait.h"

#include <cerrno>
#include <thread>

namespace portico::drivers {

void SteadyClock::SleepUntil(TimePoint moment) {
  // Waiting for descriptors knows whole milliseconds only; the rest is slept.
  if (system::WaitForAny({}, moment - std::chrono::milliseconds(1), m_cancellation) == ECANCELED) return;
  std::this_thread::sleep_until(moment);
}

} // namespace portico::drivers
