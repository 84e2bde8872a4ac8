#pragma once

#include "drivers/IClock.h"
#include "drivers/SerialLine.h"
#include "system/Cancellation.h"

#include <functional>

namespace portico::drivers {

/// Waits until a line has sent what is queued, for as long as it needs for that much, and answers how much is left. The
/// system tells of no event that could be waited for, so `queued` is asked once a millisecond. `cancellation` may be
/// null.
int DrainLine(const std::function<int()>& queued, const SerialLine& line, IClock& clock,
              const system::Cancellation* cancellation);

} // namespace portico::drivers
