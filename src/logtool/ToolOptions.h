#pragma once

#include "commandline/CommandLine.h"
#include "framework/text/text.h"
#include "logtool/LogSelection.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace portico::logtool {

using commandline::HelpText;
using commandline::UsageError;

enum class Output { Show, Csv, Json, Commands, Statistics, Errors, Table, Differences, Part, Merged, Blocks };

/// What the command line of `portico-log` asks for, checked.
struct ToolOptions {
  Output Wanted = Output::Show;
  /// Paths; "-" is standard input. Never empty; two of Differences, one of Table, Part and Blocks.
  std::vector<std::string> Files;
  /// Of Table: the query whose answers are wanted.
  String Query = {};
  /// Of Differences: by what part of the larger two numbers may differ, from 0.
  std::optional<double> Tolerance = {};
  /// Of Part: what is wanted of the log. Of Blocks its session alone counts.
  LogSelection Selection = {};
  /// Of Blocks: where the files go.
  std::string Folder = {};
};

std::variant<ToolOptions, HelpText, UsageError> ParseToolOptions(int argc, const char* const* argv);

} // namespace portico::logtool
