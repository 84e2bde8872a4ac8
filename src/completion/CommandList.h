#pragma once

#include "completion/KnownCommand.h"
#include "framework/text/text.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace portico::completion {

/// A list of commands that came as a text file.
struct CommandList {
  static constexpr std::size_t MostBytes = 4U << 20U;

  std::vector<KnownCommand> Commands;
  String Complaint; ///< one sentence about what is wrong with the list, which names the line; empty if nothing is
};

/// Reads the bytes of a list: one command a line, as ReadCommand() has it; lines that begin with `#` are remarks. Of a
/// list that is no text, or that is too long, nothing is taken; of any other all lines that are commands.
CommandList ReadCommandList(std::string_view bytes);

} // namespace portico::completion
