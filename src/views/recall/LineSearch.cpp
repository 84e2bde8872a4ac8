#include "views/recall/LineSearch.h"

#include <algorithm>
#include <unordered_set>

namespace portico {
namespace {

bool Holds(StringView line, StringView folded) {
  const auto equal = [](char16_t unit, char16_t wanted) { return FoldCase(unit) == wanted; };
  return std::search(line.begin(), line.end(), folded.begin(), folded.end(), equal) != line.end() || folded.empty();
}

} // namespace

LineSearch::LineSearch(const std::deque<String>& lines) : m_lines(lines) {
  std::unordered_set<StringView> seen;
  for (std::size_t i = lines.size(); i-- > 0;) {
    if (seen.insert(lines[i]).second) m_all.push_back(i);
  }
  m_found = m_all;
}

void LineSearch::Find(StringView text) {
  if (!text.starts_with(m_text)) m_found = m_all;
  m_text = text;
  String folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
  std::erase_if(m_found, [&](std::size_t index) { return !Holds(m_lines[index], folded); });
}

} // namespace portico
