#pragma once

#include "framework/text/text.h"

namespace portico {

/// An answer to the instrument's error query reports an error if its leading integer is not 0.
bool ReportsError(StringView answer);

} // namespace portico
