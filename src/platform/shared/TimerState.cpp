#include "platform/shared/TimerState.h"

#include "platform/shared/Checks.h"

namespace portico {

void TimerState::Interval(std::int32_t milliseconds) {
  CheckValue(milliseconds, 0, LongestInterval);
  m_interval = milliseconds;
  if (m_enabled) Restart();
}

void TimerState::Enabled(bool newValue) {
  if (newValue == m_enabled) return;
  m_enabled = newValue;
  Restart();
}

} // namespace portico
