#pragma once

#include "completion/KnownCommand.h"
#include "framework/text/text.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace portico::completion {

/// What was sent and accepted: the headers, as they were typed but in capitals, and the words that were parameters.
class SentCommands {
public:
  /// So many are kept, of each header the command and the query for themselves. Those that were not sent for the
  /// longest time are forgotten.
  static constexpr std::size_t Most = 2000;

  /// Takes up a line that an instrument has carried out without an error. Whether something new was in it.
  bool Take(StringView line);

  /// The commands, the one that was sent last at the end.
  std::span<const KnownCommand> All() const { return m_commands; }

private:
  bool Take(KnownCommand command);

  std::vector<KnownCommand> m_commands;
};

} // namespace portico::completion
