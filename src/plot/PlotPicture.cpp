#include "plot/PlotPicture.h"

#include "numbers/AxisTicks.h"
#include "plot/ClippedPath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace portico::plot {
namespace {

using numbers::Range;

constexpr double Gutter = 6; // pixels between what stands side by side
constexpr double TickLength = 4;
constexpr double SampleLength = 28;  // of a line in the legend
constexpr double LeastArea = 20;     // a smaller one has no curves
constexpr double SparseColumns = 12; // pixels a value at least, where each has its mark
constexpr double OverloadSize = 9;
constexpr double Farthest = 1e300; // pixels, of which a double still holds the differences
constexpr int MostLegendRows = 3;
constexpr std::size_t DashCount = 4;
constexpr std::size_t ShapeCount = 4;

struct Style {
  Ink Colour;
  Dash Pattern;
  MarkShape Shape;
};

/// Curves that share a colour have another dash.
Style StyleOf(std::size_t curve) {
  const std::size_t dash = (curve + curve / CurveInks) % DashCount;
  return {static_cast<Ink>(static_cast<std::size_t>(Ink::Curve1) + curve % CurveInks), static_cast<Dash>(dash),
          static_cast<MarkShape>(curve % ShapeCount)};
}

/// Draws one picture.
class Painter {
public:
  Painter(const Scene& scene, double width, double height, const TextMetrics& metrics)
      : m_scene(scene), m_metrics(metrics) {
    m_picture.Drawn.Width = width;
    m_picture.Drawn.Height = height;
  }

  Picture Paint() {
    Add(Fill{{0, 0, m_picture.Drawn.Width, m_picture.Drawn.Height}, Ink::Ground});
    LayOut();
    const DrawnRectangle& area = m_picture.Area;
    if (area.Width < LeastArea || area.Height < LeastArea) return std::move(m_picture);
    PaintAxes();
    Add(Clip{area});
    for (std::size_t i = 0; i < m_scene.Curves.size(); ++i) PaintCurve(*m_scene.Curves[i].Data, StyleOf(i));
    PaintCursors();
    Add(Clip{{0, 0, m_picture.Drawn.Width, m_picture.Drawn.Height}});
    if (!m_scene.Message.empty()) {
      Add(DrawnText{
          {area.Left + area.Width / 2, area.Top + area.Height / 2}, m_scene.Message, Ink::Text, TextAlignment::Middle});
    }
    return std::move(m_picture);
  }

private:
  template <class Part>
  void Add(Part part) {
    m_picture.Drawn.Parts.emplace_back(std::move(part));
  }

  /// The legend is above the area, the scales to its left and below.
  void LayOut() {
    const double line = m_metrics.LineHeight;
    const double top = PaintLegend();
    const double bottom = m_picture.Drawn.Height - 2 * line - TickLength - 2 * Gutter;
    m_ticksY = numbers::ValueTicks(m_scene.Y, {std::max(bottom - top, 1.0), [line](StringView) { return line * 1.5; }});
    double labels = 0;
    for (const numbers::Tick& tick : m_ticksY.Ticks) labels = std::max(labels, m_metrics.ExtentOf(tick.Label));
    // On whole pixels, as columns are a pixel wide.
    const double left = std::ceil(labels + TickLength + 2 * Gutter);
    const double right = std::floor(m_picture.Drawn.Width - 3 * Gutter);
    m_picture.Area = {left, top, std::max(right - left, 0.0), std::max(bottom - top, 0.0)};
    const numbers::AxisRoom room{std::max(m_picture.Area.Width, 1.0), m_metrics.ExtentOf};
    m_ticksX = m_scene.IsTime ? numbers::TimeTicks(m_scene.X, room) : numbers::ValueTicks(m_scene.X, room);
  }

  /// Where the area may begin.
  double PaintLegend() {
    const double line = m_metrics.LineHeight;
    double left = Gutter;
    double middle = Gutter + line / 2;
    int rows = 1;
    for (std::size_t i = 0; i < m_scene.Curves.size(); ++i) {
      const double extent = SampleLength + Gutter + m_metrics.ExtentOf(m_scene.Curves[i].Name) + 2 * Gutter;
      if (left > Gutter && left + extent > m_picture.Drawn.Width) {
        if (++rows > MostLegendRows) {
          const auto more = static_cast<std::int64_t>(m_scene.Curves.size() - i);
          Add(DrawnText{{left, middle}, u"+" + ToText(more)});
          return middle + line / 2 + Gutter;
        }
        left = Gutter;
        middle += line;
      }
      const Style style = StyleOf(i);
      Add(Polyline{{{left, middle}, {left + SampleLength, middle}}, style.Colour, 2, style.Pattern});
      Add(Marks{{{left + SampleLength / 2, middle}}, style.Colour, style.Shape, 6});
      Add(DrawnText{{left + SampleLength + Gutter, middle}, m_scene.Curves[i].Name});
      left += extent;
    }
    return middle + line / 2 + Gutter;
  }

  double ToX(double place) const {
    const Range& range = m_scene.X;
    const double share = (place - range.From) / (range.To - range.From);
    return m_picture.Area.Left + std::clamp(share * m_picture.Area.Width, -Farthest, Farthest);
  }
  double ToY(double value) const {
    const Range& range = m_scene.Y;
    const double share = (value - range.From) / (range.To - range.From);
    return m_picture.Area.Bottom() - std::clamp(share * m_picture.Area.Height, -Farthest, Farthest);
  }

  void PaintAxes() {
    const DrawnRectangle& area = m_picture.Area;
    const double line = m_metrics.LineHeight;
    Segments grid{{}, Ink::Grid};
    Segments ticks{{}, Ink::Frame};
    for (const numbers::Tick& tick : m_ticksX.Ticks) {
      const double x = ToX(tick.Place);
      grid.Ends.insert(grid.Ends.end(), {{x, area.Top}, {x, area.Bottom()}});
      ticks.Ends.insert(ticks.Ends.end(), {{x, area.Bottom()}, {x, area.Bottom() + TickLength}});
      Add(DrawnText{{x, area.Bottom() + TickLength + line / 2}, tick.Label, Ink::Text, TextAlignment::Middle});
    }
    for (const numbers::Tick& tick : m_ticksY.Ticks) {
      const double y = ToY(tick.Place);
      grid.Ends.insert(grid.Ends.end(), {{area.Left, y}, {area.Right(), y}});
      ticks.Ends.insert(ticks.Ends.end(), {{area.Left - TickLength, y}, {area.Left, y}});
      Add(DrawnText{{area.Left - TickLength - Gutter / 2, y}, tick.Label, Ink::Text, TextAlignment::Right});
    }
    Add(std::move(grid));
    Add(std::move(ticks));
    Add(Polyline{{{area.Left, area.Top},
                  {area.Right(), area.Top},
                  {area.Right(), area.Bottom()},
                  {area.Left, area.Bottom()},
                  {area.Left, area.Top}},
                 Ink::Frame});
    String title = m_scene.PlaceTitle;
    if (!m_ticksX.Form.empty()) title += u" (" + m_ticksX.Form + u")";
    Add(DrawnText{{area.Left + area.Width / 2, area.Bottom() + TickLength + line * 1.5 + Gutter / 2},
                  title,
                  Ink::Text,
                  TextAlignment::Middle});
  }

  void PaintCurve(const numbers::Series& data, const Style& style) {
    const auto [first, last] = data.Within(m_scene.X);
    const auto columns = static_cast<std::size_t>(m_picture.Area.Width);
    ClippedPath path(m_picture.Area);
    Marks marks{{}, style.Colour, style.Shape, 6};
    // The values beside the picture lead their lines out of it.
    if (first > 0 && first <= data.Size()) AddValue(data, first - 1, path, nullptr);
    if (last - first <= 2 * columns) {
      const bool isSparse = static_cast<double>(last - first) * SparseColumns <= m_picture.Area.Width;
      for (std::size_t i = first; i < last; ++i) {
        const bool isAlone = (i == 0 || !std::isfinite(data.Value(i - 1))) &&
                             (i + 1 == data.Size() || !std::isfinite(data.Value(i + 1)));
        AddValue(data, i, path, isSparse || isAlone ? &marks : nullptr);
      }
    } else {
      AddColumns(data, columns, path);
    }
    if (last < data.Size()) AddValue(data, last, path, nullptr);
    const double width = last - first <= 2 * columns ? 1.5 : 1;
    for (auto& points : path.Take()) Add(Polyline{std::move(points), style.Colour, width, style.Pattern});
    if (!marks.Places.empty()) Add(std::move(marks));
    PaintOverloads(data, columns, style);
  }

  void AddValue(const numbers::Series& data, std::size_t i, ClippedPath& path, Marks* marks) const {
    const double value = data.Value(i);
    if (!std::isfinite(value)) return path.Break();
    const DrawnPoint point{ToX(data.Place(i)), ToY(value)};
    path.LineTo(point);
    if (marks != nullptr) marks->Places.push_back(point);
  }

  /// From where a column is entered over its extremes to where it is left.
  void AddColumns(const numbers::Series& data, std::size_t columns, ClippedPath& path) const {
    const auto reduced = data.Reduce(m_scene.X, columns);
    for (std::size_t i = 0; i < reduced.size(); ++i) {
      const auto& column = reduced[i];
      if (column.First == column.Last) continue;
      if (!column.Values.HasValues()) {
        path.Break();
        continue;
      }
      const double x = m_picture.Area.Left +
                       (static_cast<double>(i) + 0.5) * m_picture.Area.Width / static_cast<double>(reduced.size());
      const double enters = data.Value(column.First);
      const double leaves = data.Value(column.Last - 1);
      if (std::isfinite(enters)) {
        path.LineTo({x, ToY(enters)});
      } else {
        path.Break();
      }
      path.LineTo({x, ToY(column.Values.Minimum)});
      path.LineTo({x, ToY(column.Values.Maximum)});
      if (std::isfinite(leaves)) {
        path.LineTo({x, ToY(leaves)});
      } else {
        path.Break();
      }
    }
  }

  void PaintOverloads(const numbers::Series& data, std::size_t columns, const Style& style) {
    const numbers::Extremes all = data.Over(m_scene.X);
    if (!all.High && !all.Low) return;
    const DrawnRectangle& area = m_picture.Area;
    Marks high{{}, style.Colour, MarkShape::TriangleUp, OverloadSize};
    Marks low{{}, style.Colour, MarkShape::TriangleDown, OverloadSize};
    const auto reduced = data.Reduce(m_scene.X, columns);
    for (std::size_t i = 0; i < reduced.size(); ++i) {
      const double x = area.Left + (static_cast<double>(i) + 0.5) * area.Width / static_cast<double>(reduced.size());
      if (reduced[i].Values.High) high.Places.push_back({x, area.Top + OverloadSize / 2 + 1});
      if (reduced[i].Values.Low) low.Places.push_back({x, area.Bottom() - OverloadSize / 2 - 1});
    }
    for (Marks* marks : {&high, &low}) {
      if (!marks->Places.empty()) Add(std::move(*marks));
    }
  }

  void PaintCursors() {
    const DrawnRectangle& area = m_picture.Area;
    for (std::size_t i = 0; i < m_scene.Cursors.size(); ++i) {
      const auto& place = m_scene.Cursors.at(i);
      if (!place || *place < m_scene.X.From || *place > m_scene.X.To) continue;
      const double x = ToX(*place);
      Add(Polyline{{{x, area.Top}, {x, area.Bottom()}}, Ink::Cursor, 1, i == 0 ? Dash::Solid : Dash::Dashed});
      Add(DrawnText{{x + Gutter / 2, area.Top + m_metrics.LineHeight / 2},
                    ToText(static_cast<std::int64_t>(i) + 1),
                    Ink::Cursor});
    }
  }

  const Scene& m_scene;
  const TextMetrics& m_metrics;
  Picture m_picture;
  numbers::AxisTicks m_ticksX;
  numbers::AxisTicks m_ticksY;
};

} // namespace

Picture Draw(const Scene& scene, double width, double height, const TextMetrics& metrics) {
  return Painter(scene, width, height, metrics).Paint();
}

} // namespace portico::plot
