#pragma once

#include <string>
#include <variant>
#include <vector>

namespace portico::logtool {

enum class Output { Show, Csv, Json, Commands, Statistics };

/// What the command line of `portico-log` asks for, checked.
struct ToolOptions {
  Output Wanted = Output::Show;
  /// Paths; "-" is standard input. Never empty.
  std::vector<std::string> Files;
};

/// A text for standard output after which the program ends well: help, or the version.
struct HelpText {
  std::string Text;
};

/// One line that says what was wrong and what would be right.
struct UsageError {
  std::string Text;
};

std::variant<ToolOptions, HelpText, UsageError> ParseToolOptions(int argc, const char* const* argv);

} // namespace portico::logtool
