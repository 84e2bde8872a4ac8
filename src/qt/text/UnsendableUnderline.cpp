#include "qt/text/UnsendableUnderline.h"

#include "qt/values/QtText.h"
#include "richtext/Unsendable.h"

#include <QPainter>
#include <QPolygonF>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>

namespace portico::qt {
namespace {

const QColor WaveColor(0xB3, 0x4A, 0x00);
constexpr double WaveStep = 2;

/// From `left` to `right`, between `base` and a step below.
QPolygonF Wave(double left, double right, double base) {
  QPolygonF wave;
  bool isLow = false;
  double x = left;
  while (x < right) {
    wave << QPointF(x, isLow ? base + WaveStep : base);
    x += WaveStep;
    isLow = !isLow;
  }
  return wave << QPointF(right, isLow ? base + WaveStep : base);
}

} // namespace

void UnderlineUnsendable(QPainter& painter, const QTextBlock& block, QPointF origin) {
  const String text = FromQt(block.text());
  painter.setPen(QPen(WaveColor, 1));
  for (const richtext::TextSpan& span : richtext::UnsendableSpans(text)) {
    const auto start = static_cast<int>(span.Start);
    const QTextLine line = block.layout()->lineForTextPosition(start);
    if (!line.isValid()) continue;
    const int end = std::min(start + static_cast<int>(span.Length), line.textStart() + line.textLength());
    const double base = origin.y() + line.y() + std::min(line.ascent() + 1, line.height() - WaveStep - 1);
    painter.drawPolyline(Wave(origin.x() + line.cursorToX(start), origin.x() + line.cursorToX(end), base));
  }
}

} // namespace portico::qt
