#include "scpi/Mnemonic.h"

#include "scpi/Syntax.h"

#include <algorithm>

namespace portico::scpi {
namespace {

bool EqualsUpper(std::string_view text, std::string_view upper) {
  return text.size() == upper.size() &&
         std::equal(text.begin(), text.end(), upper.begin(), [](char a, char b) { return ToUpper(a) == b; });
}

} // namespace

Mnemonic::Mnemonic(std::string_view pattern) {
  for (const char letter : pattern) {
    const char upper = ToUpper(letter);
    if (letter == upper) m_short += letter;
    m_long += upper;
  }
}

bool Mnemonic::Matches(std::string_view text) const { return EqualsUpper(text, m_short) || EqualsUpper(text, m_long); }

std::string ShortOf(std::span<const std::string_view> keywords, std::size_t index) {
  return Mnemonic(keywords[index]).Short();
}

} // namespace portico::scpi
