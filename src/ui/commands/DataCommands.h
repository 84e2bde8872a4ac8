#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// Makers of the commands of the menu Data. None takes a parameter.
extern const CreatorRow CtorStopAtErrors;

} // namespace portico
