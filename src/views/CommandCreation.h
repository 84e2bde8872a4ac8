#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/ICommand.h"

namespace portico {

/// Asks the factory for a command; whatever else it makes raises `CannotCreate` with the text.
inline Ref<ICommand> CreateCommand(StringView Specification, const Params& Parameters, StringView FailureText) {
  const Ref<IObject> made = Create<IObject>(Specification, Parameters);
  const bool isCommand = made && CastPointer<ICommand>(made.Get()) != nullptr;
  HuntERR::Check(isCommand, ErrorNumber::CannotCreate, FailureText);
  return Cast<ICommand>(made);
}

} // namespace portico
