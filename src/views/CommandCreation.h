#pragma once

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"
#include "framework/ICommand.h"
#include "framework/IObjectFactory.h"

namespace portico {

/// Asks the factory for a command; whatever else it makes raises 31004 with the text.
inline Ref<ICommand> CreateCommand(StringView Specification, const Params& Parameters, StringView FailureText) {
  const Ref<IObject> made = Create<IObject>(Specification, Parameters);
  const bool isCommand = made && CastPointer<ICommand>(made.Get()) != nullptr;
  HuntERR::Check(isCommand, ErrorNumber::CannotCreate, FailureText);
  return Cast<ICommand>(made);
}

} // namespace portico
