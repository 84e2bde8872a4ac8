#include "views/repeat/TurnWait.h"

#include "platform/IEventLoop.h"

#include <algorithm>

namespace portico {

bool WaitUntil(TurnSchedule::TimePoint moment, const std::function<TurnSchedule::TimePoint()>& now,
               const std::function<bool()>& isOver) {
  const auto timer = gEventLoop->MakeTimer();
  while (!isOver()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(moment - now()).count();
    if (left <= 0) return true;
    timer->Interval(static_cast<std::int32_t>(std::min<std::int64_t>(left, LongestInterval)));
    timer->Enabled(true);
    gEventLoop->WaitForEvent();
  }
  return false;
}

} // namespace portico
