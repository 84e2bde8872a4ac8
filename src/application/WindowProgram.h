#pragma once

#include "framework/objects/Event.h"
#include "framework/text/text.h"

#include <functional>

namespace portico {

/// What the program needs of the event loop that its window lives on.
struct WindowLoop {
  /// Handles events until the program is told to end.
  std::function<void()> Run;
  /// From now on turns do nothing and throw nothing.
  std::function<void()> FinishQuit;
  /// Fires for each order to quit.
  Event<>& Quitting;
};

/// Shows the window, opens the instrument that the command line names, and stays at the bottom of the stack: whatever
/// was running when the program was told to end comes down to here. A notice, unless it is empty, is shown in a box
/// over the window. Answers the exit status: 1 if the window could not be made.
int RunWindow(const WindowLoop& loop, const String& commandLine, const String& notice = {});

} // namespace portico
