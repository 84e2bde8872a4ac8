#include "framework/text/Printable.h"

#include <algorithm>

namespace portico {
namespace {

bool SpoilsATerminal(char16_t unit) { return (unit < 0x20 && unit != u'\t') || (unit >= 0x7F && unit < 0xA0); }

} // namespace

std::string Printable(StringView Line) {
  String text(Line);
  std::replace_if(text.begin(), text.end(), SpoilsATerminal, u'?');
  return ToUtf8(text);
}

std::string Diagnostic(std::string_view Program, std::string_view Text) {
  std::string line = std::string(Program).append(": ");
  for (std::size_t i = 0; i < Text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(Text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < Text.size() ? Text[i + 1] : 0);
    const bool isLongControl = byte == 0xC2 && next >= 0x80 && next < 0xA0; // U+0080 to U+009F
    line += byte < 0x20 || byte == 0x7F || isLongControl ? '?' : Text[i];
    if (isLongControl) ++i;
  }
  return line;
}

} // namespace portico
