#include "commandline/CommandLine.h"

#include <CLI/CLI.hpp>

namespace portico::commandline {

std::optional<std::variant<HelpText, UsageError>> Parse(CLI::App& program, int argc, const char* const* argv) {
  try {
    program.parse(argc, argv);
    return {};
  } catch (const CLI::CallForHelp&) {
    return HelpText{program.help()};
  } catch (const CLI::CallForVersion&) {
    return HelpText{program.version() + "\n"};
  } catch (const CLI::ParseError& error) {
    return UsageError{std::string(error.what()) + "; see " + program.get_name() + " --help"};
  }
}

} // namespace portico::commandline
