#pragma once

#include "framework/objects/Creator.h"

namespace portico {

/// Maker of the command that runs lines repeatedly. It tells how many turns there were if they were not as many as the
/// user had asked for, or some were skipped.
extern const CreatorRow CtorRepeat;

} // namespace portico
