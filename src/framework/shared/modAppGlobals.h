#pragma once

#include "framework/errors/Value.h"

namespace portico::modAppGlobals {

/// The one road of every user action: makes the command that the specification names and runs it under the hourglass.
/// After a failure the pointer stays the hourglass.
void EventHandler(const String& cmdName, const Params& Parameters);

/// The same, with the main window's `Executing` set around the two long-running commands, "Run" and "RunToCursor".
/// After a failure it stays set.
void ExecutionEventHandler(const String& cmdName, const Params& Parameters);

} // namespace portico::modAppGlobals
