#pragma once

#include "platform/IEventLoop.h"

#include <functional>
#include <memory>

namespace portico {

/// Runs that a popup menu asked for: they begin when the menu has closed. Of several requests the first in the order
/// Step, Run, Run to Cursor is met, and the others are forgotten. Made and owned by the window.
class DeferredRun final {
public:
  struct Handlers {
    std::function<void()> Step;
    std::function<void()> Run;
    std::function<void()> RunToCursor;
  };
  /// Needs `gEventLoop`.
  explicit DeferredRun(Handlers handlers);
  DeferredRun(const DeferredRun&) = delete;
  DeferredRun& operator=(const DeferredRun&) = delete;

  void RequestStep() { Request(StepRequested); }
  void RequestRun() { Request(RunRequested); }
  void RequestRunToCursor() { Request(RunToCursorRequested); }

private:
  void Request(bool& request);
  void tmrProcessCmd_Timer();

  Handlers m_handlers;
  std::unique_ptr<ITimer> tmrProcessCmd;
  bool StepRequested = false;
  bool RunRequested = false;
  bool RunToCursorRequested = false;
};

} // namespace portico
