#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// Makers of the commands that reach the driver beside the conversation. What it cannot, or what fails, is told in a
// message box. None takes a parameter.
extern const CreatorRow CtorSetTimeout;
extern const CreatorRow CtorClearDevice;
extern const CreatorRow CtorGoToLocal;

} // namespace portico
