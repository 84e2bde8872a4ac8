#include "plot/ClippedPath.h"

#include <algorithm>
#include <utility>

namespace portico::plot {
namespace {

constexpr double Margin = 10; // pixels, so that no end of a line is seen

DrawnPoint Between(const DrawnPoint& from, const DrawnPoint& to, double share) {
  return {from.X + (to.X - from.X) * share, from.Y + (to.Y - from.Y) * share};
}

/// Narrows the part of a line that is left to where `start + share * step` is between the borders. False if it is
/// nowhere.
bool Narrow(double start, double step, double least, double most, double& first, double& last) {
  if (step == 0) return start >= least && start <= most;
  double in = (least - start) / step;
  double out = (most - start) / step;
  if (in > out) std::swap(in, out);
  first = std::max(first, in);
  last = std::min(last, out);
  return first <= last;
}

} // namespace

ClippedPath::ClippedPath(const DrawnRectangle& area)
    : m_area{area.Left - Margin, area.Top - Margin, area.Width + 2 * Margin, area.Height + 2 * Margin} {}

void ClippedPath::LineTo(const DrawnPoint& point) {
  if (m_hasLast) Add(m_last, point);
  m_last = point;
  m_hasLast = true;
}

void ClippedPath::Break() {
  m_hasLast = false;
  if (!m_line.empty()) m_lines.push_back(std::exchange(m_line, {}));
}

void ClippedPath::Add(const DrawnPoint& from, const DrawnPoint& to) {
  double first = 0;
  double last = 1;
  const bool isSeen = Narrow(from.X, to.X - from.X, m_area.Left, m_area.Right(), first, last) &&
                      Narrow(from.Y, to.Y - from.Y, m_area.Top, m_area.Bottom(), first, last);
  if (!isSeen) return;
  if (first > 0 && !m_line.empty()) m_lines.push_back(std::exchange(m_line, {}));
  if (m_line.empty()) m_line.push_back(Between(from, to, first));
  m_line.push_back(last < 1 ? Between(from, to, last) : to);
  if (last < 1) m_lines.push_back(std::exchange(m_line, {}));
}

std::vector<std::vector<DrawnPoint>> ClippedPath::Take() {
  Break();
  return std::exchange(m_lines, {});
}

} // namespace portico::plot
