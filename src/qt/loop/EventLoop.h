#pragma once

#include "framework/objects/Event.h"
#include "platform/shared/EventLoopBase.h"
#include "system/WakePipe.h"

#include <QEventLoop>
#include <QSocketNotifier>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>

namespace portico::qt {

/// The toolkit's event loop. Its turns run inside one another: a handler that the toolkit called may take turns itself.
/// Each turn handles what has been posted within the program. A turn that follows closely on one which found that
/// nothing else had come does not ask the system for more. Needs the application object, which outlives it.
class EventLoop final : public EventLoopBase {
public:
  EventLoop();

  std::unique_ptr<ITimer> MakeTimer() override;

  /// The bottom of the stack: handles events until the program has been told to end, and all turns and modal windows
  /// have ended by it. Returns the exit status, 0.
  int Run();
  /// Fires for each order to quit, from within whatever loop is running: what is modal closes itself.
  Event<>& Quitting() { return m_quitting; }

  /// What a turn handles when so many turns, itself included, run inside one another.
  static QEventLoop::ProcessEventsFlags HandledAt(int depth);

private:
  /// Nested deeper than 20 turns it leaves keys and mouse waiting, so that they cannot nest it any deeper.
  void Process() override;
  void Wait() override;
  void Wake() noexcept override { m_pipe.Wake(); }
  void EndLoops();

  system::WakePipe m_pipe;
  QSocketNotifier m_notifier;
  Event<> m_quitting;
  bool m_running = false;
  int m_depth = 0;
  std::chrono::steady_clock::time_point m_nextLook; // at the system
};

/// Lives for as long as something modal is shown, and calls `close` when the program is told to end. The constructor
/// throws `Quit` if that has happened already.
class ModalTurn {
public:
  ModalTurn(EventLoop& loop, std::function<void()> close) : m_loop(loop) {
    loop.ThrowIfQuitting();
    m_connection = loop.Quitting().Connect(std::move(close));
  }
  ModalTurn(const ModalTurn&) = delete;
  ModalTurn& operator=(const ModalTurn&) = delete;
  ~ModalTurn() { m_loop.Quitting().Disconnect(m_connection); }

private:
  EventLoop& m_loop;
  Event<>::Connection m_connection = 0;
};

} // namespace portico::qt
