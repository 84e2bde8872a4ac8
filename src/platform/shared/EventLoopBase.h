#pragma once

#include "framework/objects/Event.h"
#include "platform/IEventLoop.h"

#include <atomic>

namespace portico {

/// The order to end the program, as an event loop carries it out, around the turns that a platform takes.
class EventLoopBase : public IEventLoop {
public:
  void DoEvents() final;
  void WaitForEvent() final;
  /// Safe in a signal handler.
  void RequestQuit() noexcept final;

  /// `WaitForEvent` is about to wait.
  Event<> BeforeWait;

  /// Whether turns throw `Quit`.
  bool IsQuitting() const noexcept { return m_quit && !m_finished; }
  void ThrowIfQuitting() const;
  /// `Quit` has arrived where the program ends: from now on turns do nothing and throw nothing, so that the work that
  /// is left can be done.
  void FinishQuit() noexcept { m_finished = true; }

protected:
  virtual void Process() = 0;
  virtual void Wait() = 0;
  /// Ends a wait that is under way, or the next one. Safe in a signal handler.
  virtual void Wake() noexcept = 0;

  /// Whether anybody has told the program to end, finished or not.
  bool IsQuitRequested() const noexcept { return m_quit; }
  /// The same as an order to quit, but wakes nobody.
  void NoteQuit() noexcept { m_quit = true; }

private:
  std::atomic<bool> m_quit = false;
  bool m_finished = false;
};

} // namespace portico
