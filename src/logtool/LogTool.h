#pragma once

#include "logtool/ToolOptions.h"

#include <istream>
#include <ostream>

namespace portico::logtool {

/// How the program ends, as the shell sees it.
enum class ExitStatus : int {
  Success = 0,
  Damaged = 1, ///< a log could not be read, or not to its end; or the output could not be written
  Usage = 2,
};

struct Streams {
  std::istream& In;
  std::ostream& Out;
  std::ostream& Err;
};

/// Reads the logs one after the other and prints what was asked for. A log that is no log or is damaged is named on
/// `Err`, behind what could be read of it. Ends when `Out` takes nothing more.
ExitStatus Run(const ToolOptions& options, const Streams& streams);

/// The program's line for standard error, without its line end.
std::string Diagnostic(const std::string& text);

} // namespace portico::logtool
