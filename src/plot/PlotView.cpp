#include "plot/PlotView.h"

#include "plot/Curves.h"

#include <algorithm>
#include <cmath>

namespace portico::plot {
namespace {

using numbers::Range;

constexpr double MarginShare = 0.05; // above and below the values
constexpr double LeastShare = 1e-12; // of the places themselves, that a double tells apart with room to spare
constexpr double MostWholes = 100;   // of what there is, that may be seen at once

double Width(const Range& range) { return range.To - range.From; }

/// The same, made wide round a single value.
Range Widened(Range range) {
  if (range.IsWide()) return range;
  if (!std::isfinite(range.From) || !std::isfinite(range.To)) return {0, 1};
  if (range.From < range.To) return {-1e300, 1e300}; // further apart than a double holds
  const double half = range.From == 0 ? 1 : std::abs(range.From) / 2;
  const Range wide{range.From - half, range.From + half};
  return wide.IsWide() ? wide : Range{0, 1};
}

Range WithMargin(const Range& range) {
  const double margin = Width(range) * MarginShare;
  const Range wider{range.From - margin, range.To + margin};
  return wider.IsWide() ? wider : range;
}

std::optional<Range> Zoomed(const Range& range, const Range& whole, double factor, double at) {
  const double width = Width(range) / factor;
  const double from = range.From + Width(range) * at - width * at;
  const Range zoomed{from, from + width};
  const double largest = std::max(std::abs(zoomed.From), std::abs(zoomed.To));
  if (!zoomed.IsWide() || width < largest * LeastShare || width > MostWholes * Width(whole)) return {};
  return zoomed;
}

/// Some of the whole stays in sight.
Range Panned(const Range& range, const Range& whole, double share) {
  const double wanted = share * Width(range);
  const double by = std::clamp(wanted, std::min(whole.From - range.To, 0.0), std::max(whole.To - range.From, 0.0));
  const Range panned{range.From + by, range.To + by};
  return panned.IsWide() ? panned : range;
}

} // namespace

void PlotView::Follow(const std::vector<Curve>& curves) {
  bool isFirst = true;
  Range whole{0, 1};
  for (const Curve& curve : curves) {
    if (curve.Data->Empty()) continue;
    const Range range = curve.Data->Whole();
    whole = isFirst ? range : Range{std::min(whole.From, range.From), std::max(whole.To, range.To)};
    isFirst = false;
  }
  m_wholeX = Widened(whole);
  m_shownX = m_x.value_or(m_wholeX);
  FitY(curves);
}

void PlotView::FitY(const std::vector<Curve>& curves) {
  numbers::Extremes extremes;
  for (const Curve& curve : curves) extremes.Add(curve.Data->Over(m_shownX));
  if (extremes.HasValues()) m_wholeY = WithMargin(Widened({extremes.Minimum, extremes.Maximum}));
  m_shownY = m_y.value_or(m_wholeY);
}

void PlotView::ZoomX(double factor, double at) {
  if (const auto zoomed = Zoomed(m_shownX, m_wholeX, factor, at)) m_x = m_shownX = *zoomed;
}

void PlotView::ZoomY(double factor, double at) {
  if (const auto zoomed = Zoomed(m_shownY, m_wholeY, factor, at)) m_y = m_shownY = *zoomed;
}

void PlotView::Pan(double right, double up) {
  if (right != 0) m_x = m_shownX = Panned(m_shownX, m_wholeX, right);
  if (up != 0) m_y = m_shownY = Panned(m_shownY, m_wholeY, up);
}

void PlotView::ShowAll() {
  m_x.reset();
  m_y.reset();
  m_shownX = m_wholeX;
  m_shownY = m_wholeY;
}

} // namespace portico::plot
