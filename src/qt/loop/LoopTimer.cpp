#include "qt/loop/LoopTimer.h"

#include "qt/loop/HandlerTurn.h"

namespace portico::qt {

LoopTimer::LoopTimer() {
  m_timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Enter([this] { Timer()(); }); });
}

void LoopTimer::Restart() {
  m_timer.stop();
  // The toolkit's own would fire at every turn.
  if (IsRunning()) m_timer.start(Interval());
}

} // namespace portico::qt
