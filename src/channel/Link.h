#pragma once

#include "framework/objects/IObjectFactory.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/ICommand.h"

namespace portico {

/// A new command, initialized with the inner command, `arguments`, and the publisher.
template <class Command, class... Arguments>
Ref<IObject> Link(const Params& Parameters, const Arguments&... arguments) {
  auto command = New<Command>();
  command->Initialize(Parameters[0].ToObject<ICommand>(), arguments..., Create(Class::CmdSubscriptionAgent));
  return command;
}

} // namespace portico
