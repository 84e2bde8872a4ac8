#pragma once

#include <optional>
#include <string>
#include <variant>

namespace CLI {
class App;
}

namespace portico::commandline {

/// A text for standard output after which the program ends well: help, or the version.
struct HelpText {
  std::string Text;
};

/// One line that says what was wrong and what would be right.
struct UsageError {
  std::string Text;
};

/// Reads a program's arguments into what its options are bound to; why the program is to end at once, if it is.
std::optional<std::variant<HelpText, UsageError>> Parse(CLI::App& program, int argc, const char* const* argv);

} // namespace portico::commandline
