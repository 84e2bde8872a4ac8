#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// Makers of the commands that put answers into files. What fails is told in one sentence, and leaves no file.
extern const CreatorRow CtorSaveAnswer;
extern const CreatorRow CtorFetchAnswer;

} // namespace portico
