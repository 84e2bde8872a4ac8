#pragma once

#include "framework/objects/Creator.h"

namespace portico {

/// Makes what shows the picture under the caret. It takes what knows the answer there, and the window.
extern const CreatorRow CtorShowPicture;

} // namespace portico
