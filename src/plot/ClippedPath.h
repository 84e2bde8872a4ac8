#pragma once

#include "platform/Drawing.h"

#include <vector>

namespace portico::plot {

/// The lines through points that come one after the other, cut off a little outside of an area: a painter's
/// coordinates are few, while a zoomed curve goes to any place. Each value of a place is finite.
class ClippedPath {
public:
  explicit ClippedPath(const DrawnRectangle& area);

  void LineTo(const DrawnPoint& point);
  /// What comes next begins a line of its own. A point alone in its line is in none.
  void Break();

  /// Lines of two points and more.
  std::vector<std::vector<DrawnPoint>> Take();

private:
  void Add(const DrawnPoint& from, const DrawnPoint& to);

  DrawnRectangle m_area;
  std::vector<std::vector<DrawnPoint>> m_lines;
  std::vector<DrawnPoint> m_line;
  DrawnPoint m_last;
  bool m_hasLast = false;
};

} // namespace portico::plot
