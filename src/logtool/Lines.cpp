#include "logtool/Lines.h"

namespace portico::logtool {

std::vector<StringView> Lines(StringView text) {
  auto lines = Split(WithoutLineEnd(text), u"\n");
  for (StringView& line : lines) {
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
  }
  return lines;
}

StringView WithoutLineEnd(StringView text) {
  if (!text.empty() && text.back() == u'\n') text.remove_suffix(1);
  if (!text.empty() && text.back() == u'\r') text.remove_suffix(1);
  return text;
}

} // namespace portico::logtool
