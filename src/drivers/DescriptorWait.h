#pragma once

#include "drivers/IClock.h"

namespace portico::drivers {

/// Waits until the descriptor is ready for one of the `events` of poll(), or has failed, which its next use then tells.
/// Signals do not end the wait. Answers 0, ETIMEDOUT, or the system's error number.
int WaitFor(int descriptor, short events, TimePoint deadline);

} // namespace portico::drivers
