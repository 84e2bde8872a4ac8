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

} // namespace portico
