#pragma once

#include "completion/CommandTree.h"
#include "framework/text/text.h"

#include <cstddef>
#include <vector>

namespace portico::completion {

/// Something that fits what is typed.
struct Candidate {
  String Text;  ///< what stands there instead of what was typed, whose letters it keeps
  String Shown; ///< the same as manuals write it: with both forms, and with the parameters as far as they are known

  bool operator==(const Candidate&) const = default;
};

/// What fits a line up to the caret.
struct Completion {
  static constexpr std::size_t Most = 200;
  /// So many of a node's numeric suffixes are offered, from the first.
  static constexpr std::size_t MostSuffixes = 8;

  std::size_t Begin = 0; ///< where the candidates' text begins; it takes the place of all from there to the caret
  /// Those of the preferred source first, each source's by their names. A candidate is the next node of a header, which
  /// ends in `?` or `:` where it goes on so, or a word of a parameter.
  std::vector<Candidate> Candidates;
};

/// Completes a line of program messages at its end. What stands there is the beginning of a header's node or of a
/// parameter; behind a semicolon the header goes on from the path of those before it, and an instrument's rules for it
/// hold: a colon begins at the root, a common command leaves it alone. Words are in the form and the case that the user
/// writes.
Completion Complete(StringView line, const CommandTree& tree);

} // namespace portico::completion
