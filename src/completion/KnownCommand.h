#pragma once

#include "scpi/HeaderPattern.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace portico::completion {

/// The words that a parameter may be, `ON` or `MINimum`, as far as they are known.
using Choices = std::vector<std::string>;

/// A command that somebody told of.
struct KnownCommand {
  /// Of one source; what is beyond is left out.
  static constexpr std::size_t Most = 20'000;
  static constexpr std::size_t LongestLine = 1000; ///< bytes
  static constexpr std::size_t MostParameters = 16;
  static constexpr std::size_t MostChoices = 64;

  scpi::HeaderPattern Header;
  bool Command = true;                  ///< it may stand without a question mark
  bool Query = true;                    ///< it may stand with one
  std::vector<Choices> Parameters = {}; ///< of the command, and of what is a query alone the query's

  bool operator==(const KnownCommand&) const = default;
};

/// Reads a line of a list of commands, and of what an instrument tells of itself: a header as HeaderPattern reads it,
/// which is a command and a query; with `?` or `/qonly/` behind it, or both, it is a query alone, with `/nquery/` a
/// command alone. Behind a blank stand the parameters, with commas between them and `|` between the words that one may
/// be; whatever is no word, `<value>` for example, is passed over, and so are brackets. None for any other line.
std::optional<KnownCommand> ReadCommand(std::string_view line);

/// The command as a line, which reads back as the same if it is no longer than a line may be.
std::string TextOf(const KnownCommand& command);
/// Parameters as such a line has them, `<value>` where no word is known.
std::string TextOf(const std::vector<Choices>& parameters);

} // namespace portico::completion
