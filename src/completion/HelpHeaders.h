#pragma once

#include "completion/KnownCommand.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace portico::completion {

/// What an instrument tells of itself in answer to `SYSTem:HELP:HEADers?`.
struct HelpHeaders {
  std::vector<KnownCommand> Commands;
  std::size_t NotUnderstood = 0; ///< lines that are no header, with one that a torn block breaks off, and those beyond
                                 ///< KnownCommand::Most
};

/// Reads the answer, whose bytes are a block or bare lines, one header each.
HelpHeaders ReadHelpHeaders(std::string_view answer);

} // namespace portico::completion
