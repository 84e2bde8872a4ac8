#pragma once

#include "views/repeat/TurnSchedule.h"

#include <functional>

namespace portico {

/// Waits on the event loop, whose events are handled meanwhile, until a moment has come; false once `isOver`, which is
/// asked in front and behind each event. `now` is the time of the event loop.
bool WaitUntil(TurnSchedule::TimePoint moment, const std::function<TurnSchedule::TimePoint()>& now,
               const std::function<bool()>& isOver);

} // namespace portico
