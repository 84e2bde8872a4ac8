#pragma once

#include "framework/objects/Creator.h"

namespace portico {

/// Maker of the command that shows what queries took.
extern const CreatorRow CtorShowTimes;

} // namespace portico
