#include "plot/ClippedPath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace portico::plot {
namespace {

constexpr double Margin = 10; // pixels, so that no end of a line is seen

DrawnPoint Between(const DrawnPoint& from, const DrawnPoint& to, double share) {
  return {from.X + (to.X - from.X) * share, from.Y + (to.Y - from.Y) * share};
}

double Distance(const DrawnPoint& point) { return std::max(std::abs(point.X), std::abs(point.Y)); }

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
  // Seen from the nearer end, whose pixels are lost in the differences of the far one.
  const bool isTurned = Distance(to) < Distance(from);
  const DrawnPoint& near = isTurned ? to : from;
  const DrawnPoint& far = isTurned ? from : to;
  double first = 0;
  double last = 1;
  const bool isSeen = Narrow(near.X, far.X - near.X, m_area.Left, m_area.Right(), first, last) &&
                      Narrow(near.Y, far.Y - near.Y, m_area.Top, m_area.Bottom(), first, last);
  if (!isSeen) return;
  DrawnPoint enters = Between(near, far, first);
  DrawnPoint leaves = last < 1 ? Between(near, far, last) : far;
  if (isTurned) std::swap(enters, leaves);
  // What comes from outside does not go on where another line has left.
  if (enters != from && !m_line.empty()) m_lines.push_back(std::exchange(m_line, {}));
  if (m_line.empty()) m_line.push_back(enters);
  m_line.push_back(leaves);
}

std::vector<std::vector<DrawnPoint>> ClippedPath::Take() {
  Break();
  return std::exchange(m_lines, {});
}

} // namespace portico::plot
