#include "completion/WordForm.h"

#include "scpi/Mnemonic.h"
#include "scpi/Syntax.h"

#include <algorithm>

namespace portico::completion {
namespace {

char ToLower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

bool IsUpper(char byte) { return scpi::IsLetter(byte) && scpi::ToUpper(byte) == byte; }
bool IsLower(char byte) { return scpi::ToUpper(byte) != byte; }

/// Whether a word, in any case, begins with a text.
bool Begins(std::string_view word, std::string_view text) {
  const auto equal = [](char a, char b) { return scpi::ToUpper(a) == scpi::ToUpper(b); };
  return text.size() <= word.size() && std::equal(text.begin(), text.end(), word.begin(), equal);
}

template <char (*change)(char)>
std::string Changed(std::string_view text) {
  std::string changed(text);
  std::transform(changed.begin(), changed.end(), changed.begin(), change);
  return changed;
}

} // namespace

void WordForm::Learn(std::string_view typed, std::string_view name) {
  const scpi::Mnemonic keyword(name);
  if (keyword.Short() != keyword.Long()) m_long = typed.size() == keyword.Long().size();
  LearnCase(typed);
}

void WordForm::LearnCase(std::string_view typed) {
  const bool upper = std::any_of(typed.begin(), typed.end(), IsUpper);
  const bool lower = std::any_of(typed.begin(), typed.end(), IsLower);
  if (upper || lower) m_case = upper && lower ? Case::AsNamed : upper ? Case::Upper : Case::Lower;
}

std::optional<std::string> WordForm::Complete(std::string_view typed, std::string_view name) const {
  const std::string shortForm = scpi::Mnemonic(name).Short();
  const bool isShort = Begins(shortForm, typed);
  if (!isShort && !Begins(name, typed)) return std::nullopt;
  const std::string_view form = isShort && !(m_long && Begins(name, typed)) ? std::string_view(shortForm) : name;
  const std::string_view rest = form.substr(typed.size());
  std::string word(typed);
  // In one case if the beginning, or else the word before, is; as it is named where they do not tell.
  if (m_case == Case::AsNamed && form.starts_with(typed)) return word.append(rest);
  WordForm own = *this;
  own.LearnCase(typed);
  if (own.m_case == Case::AsNamed) {
    if (form.starts_with(typed)) return word.append(rest);
    const auto last = std::find_if(typed.rbegin(), typed.rend(), scpi::IsLetter);
    own.m_case = last != typed.rend() && IsLower(*last) ? Case::Lower : Case::Upper;
  }
  return word.append(own.m_case == Case::Lower ? Changed<ToLower>(rest) : Changed<scpi::ToUpper>(rest));
}

} // namespace portico::completion
