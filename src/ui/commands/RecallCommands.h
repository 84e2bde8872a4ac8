#pragma once

#include "framework/objects/Creator.h"

namespace portico {

// What was sent, brought back. A failure of the file in which it is kept is told by the first of these that finds it,
// in one sentence.
extern const CreatorRow CtorEarlierLine;
extern const CreatorRow CtorLaterLine;
extern const CreatorRow CtorSearchSentLines;
extern const CreatorRow CtorPutBackLastRun;
extern const CreatorRow CtorKeepSentLines;
extern const CreatorRow CtorForgetSentLines;

} // namespace portico
