#include "qt/text/MarkMargin.h"

#include "qt/text/TextView.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <QScrollBar>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace portico::qt {
namespace {

// In pixels of the toolkit's, which are larger on a screen of high density.
constexpr int StripWidth = 11;
constexpr int OverviewWidth = 8;
constexpr int BarHeight = 3;
constexpr double LargestMark = 9;

// Dark enough on either ground; neither red nor green has to be told from another colour.
const QColor MarkColor(0xA8, 0x3C, 0x00);
const QColor StripGround(Qt::white);
const QColor OverviewGround(0xEC, 0xEC, 0xEC);

QString Description(std::size_t count) {
  if (count == 0) return {};
  return count == 1 ? QStringLiteral("1 line is marked") : QStringLiteral("%1 lines are marked").arg(count);
}

} // namespace

MarkMargin::Canvas::Canvas(TextView& view, const char* name) : QWidget(&view) {
  setObjectName(QString::fromLatin1(name));
  setFocusPolicy(Qt::NoFocus);
  setCursor(Qt::ArrowCursor);
  setAttribute(Qt::WA_OpaquePaintEvent);
  hide();
}

void MarkMargin::Canvas::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Paint(painter);
}

void MarkMargin::Canvas::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && Press) Press(static_cast<int>(event->position().y()));
}

MarkMargin::MarkMargin(TextView& view, const IMarkedText& text)
    : QObject(&view),
      m_view(view),
      m_text(&text),
      m_strip(*new Canvas(view, "markStrip")),
      m_overview(*new Canvas(view, "markOverview")) {
  m_strip.Paint = [this](QPainter& painter) { PaintStrip(painter); };
  m_overview.Paint = [this](QPainter& painter) { PaintOverview(painter); };
  m_overview.Press = [this](int y) { ScrollTo(y); };
  view.viewport()->installEventFilter(this);
  const auto update = [this] {
    m_strip.update();
    m_overview.update();
  };
  connect(&view, &QPlainTextEdit::updateRequest, this, update);
  connect(&view, &QPlainTextEdit::blockCountChanged, this, update);
  Show();
}

void MarkMargin::LetGo() {
  m_text = nullptr;
  Show();
}

void MarkMargin::Show() {
  const bool isShown = HasMarks();
  if (std::exchange(m_isShown, isShown) != isShown) {
    m_strip.setVisible(isShown);
    m_overview.setVisible(isShown);
    m_view.SideMargins(isShown ? StripWidth : 0, isShown ? OverviewWidth : 0);
    Place();
  }
  m_strip.update();
  m_overview.update();
  const QString description = Description(isShown ? m_text->Marks().All().size() : 0);
  m_view.setAccessibleDescription(description);
  m_overview.setToolTip(description);
}

bool MarkMargin::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) Place();
  return false;
}

void MarkMargin::Place() {
  const QRect text = m_view.viewport()->geometry();
  m_strip.setGeometry(text.left() - StripWidth, text.top(), StripWidth, text.height());
  m_overview.setGeometry(text.right() + 1, text.top(), OverviewWidth, text.height());
}

void MarkMargin::PaintStrip(QPainter& painter) const {
  painter.fillRect(m_strip.rect(), StripGround);
  if (!HasMarks()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  m_view.VisitSeen([&](int block, double top, double height) {
    const auto line = m_text->LineOf(block);
    if (!line || !m_text->Marks().AnyIn(*line, *line + 1)) return;
    const double size = std::min(LargestMark, height);
    const double middle = top + height / 2;
    QPainterPath triangle({1, middle - size / 2});
    triangle.lineTo(1 + size, middle);
    triangle.lineTo(1, middle + size / 2);
    painter.fillPath(triangle, MarkColor);
  });
}

void MarkMargin::PaintOverview(QPainter& painter) const {
  painter.fillRect(m_overview.rect(), OverviewGround);
  if (!HasMarks()) return;
  const auto height = static_cast<std::uint64_t>(m_overview.height());
  const std::uint64_t count = m_text->LineCount();
  for (std::uint64_t y = 0; y < height; ++y) {
    if (!m_text->Marks().AnyIn(y * count / height, (y + 1) * count / height)) continue;
    painter.fillRect(1, static_cast<int>(y), OverviewWidth - 2, BarHeight, MarkColor);
  }
}

void MarkMargin::ScrollTo(int y) const {
  if (!HasMarks()) return;
  m_view.BringUpToDate();
  const auto height = static_cast<std::size_t>(std::max(m_overview.height(), 1));
  const std::size_t line = static_cast<std::size_t>(std::max(y, 0)) * m_text->LineCount() / height;
  const auto& marks = m_text->Marks().All();
  auto nearest = std::lower_bound(marks.begin(), marks.end(), line);
  if (nearest == marks.end() || (nearest != marks.begin() && line - nearest[-1] < *nearest - line)) --nearest;
  const int rows = m_view.viewport()->height() / std::max(m_view.fontMetrics().lineSpacing(), 1);
  m_view.verticalScrollBar()->setValue(static_cast<int>(*nearest) - rows / 2);
}

} // namespace portico::qt
