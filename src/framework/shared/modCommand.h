#pragma once

#include "framework/objects/IPublisher.h"

namespace portico::modCommand {

/// A command without a publisher is silent, not wrong.
void PublishIfAny(const Ref<IPublisher>& Publisher, const Ref<IObject>& Subject);

} // namespace portico::modCommand
