#pragma once

#include "platform/IEventLoop.h"

#include <QTimer>

namespace portico::qt {

/// A timer of the toolkit's, to the millisecond.
class LoopTimer final : public ITimer {
public:
  LoopTimer();

  void Interval(std::int32_t milliseconds) override;
  void Enabled(bool newValue) override;
  bool Enabled() const override { return m_enabled; }
  Event<>& Timer() override { return m_event; }

private:
  void Restart();

  QTimer m_timer;
  std::int32_t m_interval = 0;
  bool m_enabled = false;
  Event<> m_event;
};

} // namespace portico::qt
