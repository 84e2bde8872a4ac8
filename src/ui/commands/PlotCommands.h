#pragma once

#include "framework/objects/Creator.h"

namespace portico {

/// Makes `Class::ShowPlot`.
extern const CreatorRow CtorShowPlot;

} // namespace portico
