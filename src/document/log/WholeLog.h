#pragma once

#include "document/log/LogReader.h"

#include <string>

namespace portico {

/// What is wrong with a log that was read from its beginning to its end.
struct LogFinding {
  /// A clause; empty if nothing is wrong.
  std::string Fault;
  /// Its end is missing, or a close stamp: all that was told is sound.
  bool IsTorn = false;
};

/// Reads a log, and only one of this application: the reading ends at a header that shows another.
LogFinding ReadWholeLog(const LogReader::Source& source, ILogVisitor& visitor);
/// The same of a file, or of what else bears that name.
LogFinding ReadWholeLog(const std::string& path, ILogVisitor& visitor);

} // namespace portico
