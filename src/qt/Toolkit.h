#pragma once

#include "qt/loop/QuitSignals.h"

#include <QString>

#include <memory>

namespace portico::qt {

class EventLoop;

/// All seams that the toolkit implements, wired for as long as this lives: event loop, forms, boxes and dialogs,
/// clipboard, keyboard, printer, settings, help. Made after the application object, before the factory; whatever uses
/// the seams must go before it.
class Toolkit {
public:
  /// `helpFolder` has the manual's pages. `cancellation` is the order that ends all waits for instruments, which the
  /// signals that end the program give; it outlives this.
  Toolkit(const QString& helpFolder, system::Cancellation& cancellation);
  Toolkit(const Toolkit&) = delete;
  Toolkit& operator=(const Toolkit&) = delete;
  ~Toolkit();

  EventLoop& Loop() const { return *m_loop; }

private:
  std::shared_ptr<EventLoop> m_loop;
  QuitSignals m_signals;
};

/// Where the manual lies beside a program: as it is installed, or else in a build folder of the sources.
QString FindHelpFolder();

} // namespace portico::qt
