#include "richtext/MarkedLines.h"

#include <algorithm>
#include <utility>

namespace portico::richtext {

bool MarkedLines::Add(std::size_t line) {
  const auto at = std::lower_bound(m_lines.begin(), m_lines.end(), line);
  if (at != m_lines.end() && *at == line) return false;
  m_lines.insert(at, line);
  return true;
}

bool MarkedLines::Clear() { return !std::exchange(m_lines, {}).empty(); }

bool MarkedLines::Replace(std::size_t first, std::size_t gone, std::size_t come) {
  const auto from = std::lower_bound(m_lines.begin(), m_lines.end(), first);
  if (from == m_lines.end() || (gone == 0 && come == 0)) return false;
  const auto behind = m_lines.erase(from, std::lower_bound(from, m_lines.end(), first + gone));
  for (auto line = behind; line != m_lines.end(); ++line) *line = *line - gone + come;
  return true;
}

bool MarkedLines::AnyIn(std::size_t first, std::size_t end) const {
  const auto at = std::lower_bound(m_lines.begin(), m_lines.end(), first);
  return at != m_lines.end() && *at < end;
}

} // namespace portico::richtext
