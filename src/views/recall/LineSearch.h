#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <deque>
#include <vector>

namespace portico {

/// Finds lines by a text that stands in them, capitals or not. Of equal lines only the newest is found. What a search
/// costs grows with the lines, and with those that the last one has found, if its text has only become longer.
class LineSearch {
public:
  /// The oldest first. They must outlive the object, and must not change.
  explicit LineSearch(const std::deque<String>& lines);

  void Find(StringView text);
  /// Positions among the lines, the newest first; of all, before the first search.
  const std::vector<std::size_t>& Found() const { return m_found; }
  const String& Line(std::size_t row) const { return m_lines[m_found[row]]; }

private:
  const std::deque<String>& m_lines;
  std::vector<std::size_t> m_all;
  std::vector<std::size_t> m_found;
  String m_text;
};

} // namespace portico
