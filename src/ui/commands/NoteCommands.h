#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// Makers of what turns on and off the notes beside the text of a log viewer. Each takes the notes.
extern const CreatorRow CtorSessionMarks;
extern const CreatorRow CtorTimeStamps;

} // namespace portico
