#pragma once

#include "timing/QueryTimes.h"

#include <ostream>
#include <vector>

namespace portico::terminal {

/// Prints what queries took as a table: a heading and a line for each, or one that says that there was none.
/// Microseconds.
void PrintTimes(const std::vector<timing::QueryFigures>& figures, std::ostream& out);

} // namespace portico::terminal
