#pragma once

#include "logtool/ILogOutput.h"

#include <istream>
#include <ostream>
#include <string>

namespace portico::logtool {

struct Streams {
  std::istream& In;
  std::ostream& Out;
  std::ostream& Err;
};

/// Thrown through a reading when the output takes nothing more, with the system's error number.
struct OutputEnded {
  int Number;
};

/// Hands a log on to the output, entity by entity; `-` is standard input. What is wrong with the log, behind what could
/// be read of it; empty if nothing is. Raises `OutputEnded`.
std::string ReadLog(const std::string& name, ILogOutput& output, const Streams& streams);

/// The program's line for standard error, without its line end.
std::string Diagnostic(const std::string& text);
/// What is wrong with a log, on standard error, behind what has been printed of it.
void TellFault(const std::string& name, const std::string& fault, const Streams& streams);

} // namespace portico::logtool
