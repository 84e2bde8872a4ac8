#include "qt/values/SteepStrokes.h"

#include <algorithm>
#include <cmath>

namespace portico::qt {
namespace {

// In pixels.
constexpr double Tall = 8;
constexpr double Apart = 1.001; // from column to column of a reduced curve, and a little for rounding

} // namespace

/// The points that stand above each other.
struct SteepStrokes::Column {
  std::vector<DrawnPoint>::const_iterator First;
  std::vector<DrawnPoint>::const_iterator Last; // in front of which it ends
  double Top;
  double Bottom;

  bool IsTall() const { return Bottom - Top > Tall; }
  const DrawnPoint& Entered() const { return *First; }
  const DrawnPoint& Left() const { return *std::prev(Last); }
};

SteepStrokes::SteepStrokes(const std::vector<DrawnPoint>& points) {
  Column before{points.begin(), points.begin(), 0, 0};
  bool isLine = false; // that what comes goes on with
  while (before.Last != points.end()) {
    const auto first = before.Last;
    const auto last = std::find_if(first, points.end(), [&](const DrawnPoint& point) { return point.X != first->X; });
    const auto [highest, lowest] =
        std::minmax_element(first, last, [](const DrawnPoint& a, const DrawnPoint& b) { return a.Y < b.Y; });
    Column column{first, last, highest->Y, lowest->Y};
    const bool isFirst = first == points.begin();
    if (!isFirst && before.IsTall() && column.IsTall() && column.First->X - before.First->X <= Apart) {
      column.Top = std::min(column.Top, before.Left().Y);
      column.Bottom = std::max(column.Bottom, before.Left().Y);
    } else if (!isFirst) {
      if (!isLine) Lines.push_back({before.Left()});
      Lines.back().push_back(column.Entered());
      isLine = true;
    }
    if (column.IsTall()) {
      Bars.push_back(BarOf(column));
      isLine = false;
    } else if (last - first > 1) {
      if (!isLine) Lines.push_back({column.Entered()});
      Lines.back().insert(Lines.back().end(), std::next(first), last);
      isLine = true;
    }
    before = column;
  }
}

DrawnRectangle SteepStrokes::BarOf(const Column& column) {
  const double top = std::floor(column.Top);
  return {std::floor(column.First->X), top, 1, std::ceil(column.Bottom) - top};
}

} // namespace portico::qt
