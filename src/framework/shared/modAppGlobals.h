#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/ICommand.h"

#include <type_traits>

namespace portico {

namespace Class {

/// The runner, and the mode. The key stands here because `ExecutionEventHandler` tells the command apart by it.
inline constexpr ClassKey<ICommand, Ref<IObject>, StringView> Run{u"Run"};

} // namespace Class

namespace modAppGlobals {

/// The one road of every user action: makes the command that the specification names and runs it under the hourglass.
/// After a failure the pointer stays the hourglass.
void EventHandler(const String& cmdName, const Params& Parameters);

/// The same, with the main window's `Executing` set around the two long-running commands, "Run" and "RunToCursor".
/// After a failure it stays set. Nothing in the program sends either: the two names are kept for the contract.
void ExecutionEventHandler(const String& cmdName, const Params& Parameters);

/// `EventHandler` and `ExecutionEventHandler` for a command that is known by its key.
template <class... Parameters>
void EventHandler(const ClassKey<ICommand, Parameters...>& Command,
                  const std::type_identity_t<Parameters>&... Arguments) {
  EventHandler(String(Command.Specification), modGlobals::VarArray(Arguments...));
}
template <class... Parameters>
void ExecutionEventHandler(const ClassKey<ICommand, Parameters...>& Command,
                           const std::type_identity_t<Parameters>&... Arguments) {
  ExecutionEventHandler(String(Command.Specification), modGlobals::VarArray(Arguments...));
}

} // namespace modAppGlobals
} // namespace portico
