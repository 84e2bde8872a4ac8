#pragma once

#include "commandline/CommandLine.h"

#include <string>
#include <variant>
#include <vector>

namespace portico::logtool {

using commandline::HelpText;
using commandline::UsageError;

enum class Output { Show, Csv, Json, Commands, Statistics, Errors };

/// What the command line of `portico-log` asks for, checked.
struct ToolOptions {
  Output Wanted = Output::Show;
  /// Paths; "-" is standard input. Never empty.
  std::vector<std::string> Files;
};

std::variant<ToolOptions, HelpText, UsageError> ParseToolOptions(int argc, const char* const* argv);

} // namespace portico::logtool
