#include "richtext/Unsendable.h"

namespace portico::richtext {

std::vector<TextSpan> UnsendableSpans(StringView text) {
  std::vector<TextSpan> spans;
  for (std::size_t from = 0;;) {
    const auto found = FindOutsideCodePage(text.substr(from));
    if (!found) return spans;
    const std::size_t start = from + *found;
    from = start + 1;
    while (from < text.size() && FindOutsideCodePage(text.substr(from, 1))) ++from;
    spans.push_back({start, from - start});
  }
}

} // namespace portico::richtext
