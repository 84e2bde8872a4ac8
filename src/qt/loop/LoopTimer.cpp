#include "qt/loop/LoopTimer.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "qt/loop/HandlerTurn.h"

namespace portico::qt {
namespace {

constexpr std::int32_t LongestInterval = 65535;

} // namespace

LoopTimer::LoopTimer() {
  m_timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Enter([this] { m_event(); }); });
}

void LoopTimer::Interval(std::int32_t milliseconds) {
  if (milliseconds < 0 || milliseconds > LongestInterval) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  m_interval = milliseconds;
  if (m_enabled) Restart();
}

void LoopTimer::Enabled(bool newValue) {
  if (newValue == m_enabled) return;
  m_enabled = newValue;
  Restart();
}

void LoopTimer::Restart() {
  m_timer.stop();
  // The toolkit's own would fire at every turn.
  if (m_enabled && m_interval > 0) m_timer.start(m_interval);
}

} // namespace portico::qt
