#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// Makers of what helps the user to read the text box that had the focus last: its search, and the size of its text.
// None takes a parameter.
extern const CreatorRow CtorFind;
extern const CreatorRow CtorFindNext;
extern const CreatorRow CtorFindPrevious;
extern const CreatorRow CtorZoomIn;
extern const CreatorRow CtorZoomOut;
extern const CreatorRow CtorActualSize;

} // namespace portico
