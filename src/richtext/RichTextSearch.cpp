#include "richtext/RichTextSearch.h"

#include <algorithm>
#include <vector>

namespace portico::richtext {
namespace {

using Place = RichTextLines::Place;

/// Whether the lines behind `line` are the pieces but the first, the last of them a beginning only.
bool Continues(const RichTextLines& lines, std::size_t line, const std::vector<StringView>& pieces) {
  const std::size_t more = pieces.size() - 1;
  if (line + more >= lines.Count()) return false;
  for (std::size_t i = 1; i < more; ++i) {
    if (lines[line + i].Text != pieces[i]) return false;
  }
  return lines[line + more].Text.starts_with(pieces[more]);
}

std::optional<std::size_t> FindInLine(const RichTextLines& lines, Place from, const std::vector<StringView>& pieces) {
  const StringView text = lines[from.Line].Text;
  const StringView first = pieces.front();
  if (pieces.size() == 1) {
    const std::size_t found = text.find(first, from.Offset);
    return found == StringView::npos ? std::nullopt : std::optional(found);
  }
  const bool ends = text.substr(from.Offset).ends_with(first) && Continues(lines, from.Line, pieces);
  return ends ? std::optional(text.size() - first.size()) : std::nullopt;
}

} // namespace

std::optional<Place> FindText(const RichTextLines& lines, Place from, std::size_t lastLine, StringView text) {
  const std::vector<StringView> pieces = Split(text, NewLine);
  for (; from.Line <= lastLine; from = {from.Line + 1, 0}) {
    if (const auto offset = FindInLine(lines, from, pieces)) return Place{from.Line, *offset};
  }
  return {};
}

Place PassOver(const RichTextLines& lines, Place from, StringView set) {
  const auto has = [&](char16_t unit) { return set.find(unit) != StringView::npos; };
  const bool passesLineEnds = has(NewLine.front()) && has(NewLine.back());
  for (;; from = {from.Line + 1, 0}) {
    const StringView text = lines[from.Line].Text;
    const std::size_t offset = std::min(text.find_first_not_of(set, from.Offset), text.size());
    if (offset < text.size() || !passesLineEnds || from.Line + 1 == lines.Count()) return {from.Line, offset};
  }
}

} // namespace portico::richtext
