#include "qt/values/DrawingPainter.h"

#include "qt/values/QtText.h"
#include "qt/values/SteepStrokes.h"

#include <QPaintEngine>
#include <QPainterPath>

#include <array>
#include <cstddef>

namespace portico::qt {
namespace {

// Told apart by people who do not tell red from green, too; dark ones for a light ground, light ones for a dark.
const std::array<std::array<QColor, CurveInks>, 2> CurveColors{{
    {{{0x00, 0x62, 0xA3},
      {0xC0, 0x4F, 0x00},
      {0x00, 0x79, 0x5A},
      {0x9A, 0x45, 0x85},
      {0x7A, 0x5E, 0x00},
      {0x46, 0x46, 0x46}}},
    {{{0x56, 0xB4, 0xE9},
      {0xFF, 0xA9, 0x4D},
      {0x4C, 0xD6, 0xA8},
      {0xE6, 0xA0, 0xCC},
      {0xF0, 0xE4, 0x42},
      {0xC8, 0xC8, 0xC8}}},
}};
const std::array<QColor, 2> CursorColors{{{0xB0, 0x00, 0x40}, {0xFF, 0x80, 0xA8}}};

// The toolkit fills the outline of a line that is wider than a pixel, which takes seconds for thousands of points that
// go up and down; its smooth edges take some milliseconds.
constexpr std::size_t MostWidePoints = 100;

/// So much of the first, the rest of the second.
QColor Mixed(const QColor& first, const QColor& second, double share) {
  const auto part = [share](int a, int b) { return static_cast<int>(a * share + b * (1 - share)); };
  return {part(first.red(), second.red()), part(first.green(), second.green()), part(first.blue(), second.blue())};
}

QRectF ToQt(const DrawnRectangle& place) { return {place.Left, place.Top, place.Width, place.Height}; }
QPointF ToQt(const DrawnPoint& point) { return {point.X, point.Y}; }

QList<QPointF> ToQt(const std::vector<DrawnPoint>& points) {
  QList<QPointF> list;
  list.reserve(static_cast<qsizetype>(points.size()));
  for (const DrawnPoint& point : points) list.append(ToQt(point));
  return list;
}

Qt::PenStyle StyleOf(Dash dash) {
  constexpr std::array styles = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};
  return styles.at(static_cast<std::size_t>(dash));
}

QPainterPath ShapeOf(MarkShape shape, double size) {
  const double half = size / 2;
  QPainterPath path;
  switch (shape) {
  case MarkShape::Disc:
    path.addEllipse(QPointF(0, 0), half, half);
    break;
  case MarkShape::Square:
    path.addRect(-half, -half, size, size);
    break;
  case MarkShape::Diamond:
    path.addPolygon(QPolygonF({{0, -half}, {half, 0}, {0, half}, {-half, 0}, {0, -half}}));
    break;
  case MarkShape::Cross:
    path.moveTo(-half, -half);
    path.lineTo(half, half);
    path.moveTo(-half, half);
    path.lineTo(half, -half);
    break;
  case MarkShape::TriangleUp:
    path.addPolygon(QPolygonF({{0, -half}, {half, half}, {-half, half}, {0, -half}}));
    break;
  case MarkShape::TriangleDown:
    path.addPolygon(QPolygonF({{0, half}, {half, -half}, {-half, -half}, {0, half}}));
    break;
  }
  return path;
}

/// Draws each kind of part.
class Drawer {
public:
  Drawer(const Inks& inks, QPainter& painter) : m_inks(inks), m_painter(painter) {}

  void operator()(const Fill& fill) const { m_painter.fillRect(ToQt(fill.Place), m_inks.ColorOf(fill.Colour)); }
  void operator()(const Clip& clip) const { m_painter.setClipRect(ToQt(clip.Place)); }
  void operator()(const Polyline& line) const {
    QPen pen(m_inks.ColorOf(line.Colour), line.Width, StyleOf(line.Pattern));
    pen.setJoinStyle(Qt::BevelJoin);
    if (line.Points.size() <= MostWidePoints || m_painter.paintEngine()->type() != QPaintEngine::Raster) {
      m_painter.setPen(pen);
      return Draw(ToQt(line.Points));
    }
    pen.setCosmetic(true); // a pixel of the screen at any scale
    pen.setWidthF(1);
    m_painter.setPen(pen);
    if (line.Pattern != Dash::Solid) return Draw(ToQt(line.Points));
    const SteepStrokes strokes(line.Points);
    for (const auto& points : strokes.Lines) Draw(ToQt(points));
    DrawBars(strokes.Bars, pen.color());
  }
  void operator()(const Segments& segments) const {
    QPen pen(m_inks.ColorOf(segments.Colour), segments.Width);
    pen.setCapStyle(Qt::FlatCap);
    m_painter.setPen(pen);
    const QList<QPointF> ends = ToQt(segments.Ends);
    m_painter.drawLines(ends.constData(), static_cast<int>(ends.size() / 2));
  }
  void operator()(const Marks& marks) const {
    const QColor color = m_inks.ColorOf(marks.Colour);
    m_painter.setPen(color);
    m_painter.setBrush(color);
    const QPainterPath shape = ShapeOf(marks.Shape, marks.Size);
    for (const DrawnPoint& place : marks.Places) m_painter.drawPath(shape.translated(ToQt(place)));
    m_painter.setBrush(Qt::NoBrush);
  }
  void operator()(const DrawnText& text) const {
    m_painter.setPen(m_inks.ColorOf(text.Colour));
    const QString shown = qt::ToQt(text.Text);
    const QFontMetricsF metrics(m_painter.font(), m_painter.device());
    double left = text.Place.X;
    if (text.Alignment != TextAlignment::Left) {
      const double extent = metrics.horizontalAdvance(shown);
      left -= text.Alignment == TextAlignment::Right ? extent : extent / 2;
    }
    m_painter.drawText(QPointF(left, text.Place.Y + (metrics.ascent() - metrics.descent()) / 2), shown);
  }

private:
  void Draw(const QList<QPointF>& line) const {
    m_painter.drawPolyline(line.constData(), static_cast<int>(line.size()));
  }
  /// Filled one by one, which the toolkit does five times as fast as all in one call.
  void DrawBars(const std::vector<DrawnRectangle>& bars, const QColor& color) const {
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    for (const DrawnRectangle& bar : bars) m_painter.fillRect(ToQt(bar).toRect(), color);
    m_painter.setRenderHint(QPainter::Antialiasing);
  }

  const Inks& m_inks;
  QPainter& m_painter;
};

} // namespace

Inks::Inks() : m_ground(Qt::white), m_text(Qt::black), m_isDark(false) {}

Inks::Inks(const QPalette& palette)
    : m_ground(palette.color(QPalette::Base)),
      m_text(palette.color(QPalette::Text)),
      m_isDark(m_ground.lightness() < m_text.lightness()) {}

QColor Inks::ColorOf(Ink ink) const {
  constexpr double frameShare = 0.6;
  constexpr double gridShare = 0.18;
  const auto theme = static_cast<std::size_t>(m_isDark);
  switch (ink) {
  case Ink::Ground:
    return m_ground;
  case Ink::Text:
    return m_text;
  case Ink::Frame:
    return Mixed(m_text, m_ground, frameShare);
  case Ink::Grid:
    return Mixed(m_text, m_ground, gridShare);
  case Ink::Cursor:
    return CursorColors.at(theme);
  default:
    return CurveColors.at(theme).at(static_cast<std::size_t>(ink) - static_cast<std::size_t>(Ink::Curve1));
  }
}

void Paint(const Drawing& drawing, const Inks& inks, QPainter& painter) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const Drawer drawer(inks, painter);
  for (const auto& part : drawing.Parts) std::visit(drawer, part);
  painter.restore();
}

} // namespace portico::qt
