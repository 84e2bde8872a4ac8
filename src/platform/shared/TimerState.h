#pragma once

#include "platform/IEventLoop.h"

namespace portico {

/// What the program has set of a timer, and its event. A platform's timer is told when it is to run anew.
class TimerState : public ITimer {
public:
  void Interval(std::int32_t milliseconds) override;
  void Enabled(bool newValue) override;
  bool Enabled() const override { return m_enabled; }
  Event<>& Timer() override { return m_event; }

protected:
  /// It is to fire.
  bool IsRunning() const { return m_enabled && m_interval > 0; }
  /// Milliseconds.
  std::int32_t Interval() const { return m_interval; }
  /// From now on an interval begins if it is running; else none is left.
  virtual void Restart() = 0;

private:
  std::int32_t m_interval = 0;
  bool m_enabled = false;
  Event<> m_event;
};

} // namespace portico
