#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// Makers of the commands that lead to the errors of a conversation.
extern const CreatorRow CtorNextError;
extern const CreatorRow CtorPreviousError;
extern const CreatorRow CtorListErrors;

} // namespace portico
