#pragma once

#include "logtool/LogInput.h"
#include "logtool/ToolOptions.h"

namespace portico::logtool {

/// How the program ends, as the shell sees it.
enum class ExitStatus : int {
  Success = 0,
  Damaged = 1,   ///< a log could not be read, or not to its end; or the output could not be written
  Different = 1, ///< of `diff`
  Usage = 2,
  Unreadable = 2, ///< of `diff`: a log that could not be read, or the output that could not be written
};

/// Reads the logs one after the other and prints what was asked for. A log that is no log or is damaged is named on
/// `Err`, behind what could be read of it. Ends when `Out` takes nothing more.
ExitStatus Run(const ToolOptions& options, const Streams& streams);

} // namespace portico::logtool
