#pragma once

#include "system/WakePipe.h"

#include <functional>

namespace portico::terminal {

/// Ctrl+C and a request to terminate. The first asks for an end at the line boundary; from the second on
/// `whenSecond` is called, in the signal handler, to end a wait as well. At each `whenAny` is called, behind it. Once
/// the object has gone they are ignored. One object at a time.
class Interrupts {
public:
  /// Both must be safe in a signal handler; `whenAny` may be empty.
  explicit Interrupts(std::function<void()> whenSecond, std::function<void()> whenAny = {});
  ~Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;

  bool Requested() const;
  /// More than once, so that waits have been ended.
  bool RequestedAgain() const;
  /// Waits until the descriptor can be read; false once the user has interrupted.
  bool WaitForInput(int descriptor) const;

private:
  system::WakePipe m_wakeUp; // makes a signal visible to poll, so that none slips in between a test and the wait
  std::function<void()> m_onSecond;
  std::function<void()> m_onAny;
};

} // namespace portico::terminal
