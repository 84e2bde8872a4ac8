#pragma once

#include "platform/shared/TimerState.h"

#include <QTimer>

namespace portico::qt {

/// A timer of the toolkit's, to the millisecond.
class LoopTimer final : public TimerState {
public:
  LoopTimer();

private:
  void Restart() override;

  QTimer m_timer;
};

} // namespace portico::qt
