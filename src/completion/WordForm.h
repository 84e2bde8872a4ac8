#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace portico::completion {

/// How a user writes words: the forms and the case that the words so far have shown.
class WordForm {
public:
  /// Takes notice of a word that was typed for a name such as `VOLTage`.
  void Learn(std::string_view typed, std::string_view name);
  /// Takes notice of a word of which nothing is known but its letters.
  void LearnCase(std::string_view typed);

  /// The word that a beginning, as it was typed, goes on to be, which keeps its letters: the short form of the name, or
  /// the long form where the beginning is longer, or the words so far were long. None if the name does not begin like
  /// this.
  std::optional<std::string> Complete(std::string_view typed, std::string_view name) const;

private:
  enum class Case { AsNamed, Upper, Lower };

  bool m_long = false;
  Case m_case = Case::AsNamed;
};

} // namespace portico::completion
