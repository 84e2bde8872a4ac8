#include "views/repeat/TurnSchedule.h"

namespace portico {

std::optional<TurnSchedule::TimePoint> TurnSchedule::Next(TimePoint now) {
  if (m_turns && m_turn >= *m_turns) return {};
  if (m_interval <= std::chrono::milliseconds::zero()) return now;
  m_begin += m_interval;
  if (m_begin < now) {
    const auto late = (now - m_begin + m_interval - TimePoint::duration(1)) / m_interval;
    m_begin += late * m_interval;
    m_skipped += static_cast<std::uint64_t>(late);
  }
  return m_begin;
}

} // namespace portico
