#include "qt/text/MarkMargin.h"

#include "qt/text/TextView.h"
#include "qt/values/QtText.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainterPath>
#include <QScrollBar>
#include <QStringList>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>
#include <utility>

namespace portico::qt {
namespace {

// In pixels of the toolkit's, which are larger on a screen of high density.
constexpr int MarksWidth = 11;
constexpr int OverviewWidth = 8;
constexpr int BarHeight = 3;
constexpr double LargestMark = 9;
constexpr int ColumnGap = 8;

// Dark enough on either ground; neither red nor green has to be told from another colour.
const QColor MarkColor(0xA8, 0x3C, 0x00);
const QColor StripGround(Qt::white);
const QColor OverviewGround(0xEC, 0xEC, 0xEC);
const QColor NotesGround(0xF3, 0xF3, 0xF3);
const QColor NotesColor(0x44, 0x44, 0x44);
const QColor RuleColor(0x2A, 0x6F, 0xC4);

QString Counted(std::size_t count) {
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

bool MarkMargin::Canvas::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || !Tip) return QWidget::event(event);
  const auto& help = static_cast<const QHelpEvent&>(*event);
  QToolTip::showText(help.globalPos(), Tip(help.pos().y()), this);
  return true;
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
  m_strip.Tip = [this](int y) { return TipAt(y); };
  m_overview.Press = [this](int y) { ScrollTo(y); };
  view.viewport()->installEventFilter(this);
  const auto update = [this] {
    m_strip.update();
    m_overview.update();
  };
  connect(&view, &QPlainTextEdit::updateRequest, this, update);
  connect(&view, &QPlainTextEdit::blockCountChanged, this, update);
  connect(&view, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    if (m_notesWidth > 0) Describe();
  });
  Show();
}

void MarkMargin::LetGo() {
  m_text = nullptr;
  Show();
}

void MarkMargin::Show() {
  MeasureNotes();
  const std::pair room(StripWidth(), HasMarks() ? OverviewWidth : 0);
  if (std::exchange(m_room, room) != room) {
    m_strip.setVisible(room.first > 0);
    m_overview.setVisible(room.second > 0);
    m_view.SideMargins(room.first, room.second);
    Place();
  }
  m_strip.update();
  m_overview.update();
  Describe();
}

void MarkMargin::MeasureNotes() {
  m_columns.clear();
  const QFontMetrics metrics(m_view.font());
  if (const auto notes = Notes()) {
    for (const String& text : notes->Widest()) m_columns.push_back(metrics.horizontalAdvance(ToQt(text)) + ColumnGap);
  }
  m_notesWidth = std::accumulate(m_columns.begin(), m_columns.end(), m_columns.empty() ? 0 : ColumnGap);
}

void MarkMargin::Describe() {
  const QString counted = Counted(HasMarks() ? m_text->Marks().All().size() : 0);
  m_overview.setToolTip(counted);
  QStringList parts;
  if (!counted.isEmpty()) parts << counted;
  const auto line = m_notesWidth > 0 ? m_text->LineOf(m_view.textCursor().blockNumber()) : std::nullopt;
  const QString told = line ? ToQt(Notes()->NoteOf(static_cast<std::int32_t>(*line)).Told) : QString();
  if (!told.isEmpty()) parts << told;
  m_view.setAccessibleDescription(parts.join(QStringLiteral("; ")));
}

int MarkMargin::StripWidth() const { return m_notesWidth + (HasMarks() ? MarksWidth : 0); }

bool MarkMargin::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) Place();
  if (event->type() == QEvent::FontChange && m_notesWidth > 0) Show();
  return false;
}

void MarkMargin::Place() {
  const QRect text = m_view.viewport()->geometry();
  m_strip.setGeometry(text.left() - StripWidth(), text.top(), StripWidth(), text.height());
  m_overview.setGeometry(text.right() + 1, text.top(), OverviewWidth, text.height());
}

void MarkMargin::PaintStrip(QPainter& painter) const {
  painter.fillRect(m_strip.rect(), StripGround);
  painter.fillRect(QRect(0, 0, m_notesWidth, m_strip.height()), NotesGround);
  painter.setFont(m_view.font());
  painter.setRenderHint(QPainter::Antialiasing);
  const auto notes = m_notesWidth > 0 ? Notes() : Ref<ILineNotes>();
  m_view.VisitSeen([&](int block, double top, double height) {
    const auto line = m_text == nullptr ? std::nullopt : m_text->LineOf(block);
    if (!line) return;
    if (notes) PaintNote(painter, notes->NoteOf(static_cast<std::int32_t>(*line)), top, height);
    if (!m_text->Marks().AnyIn(*line, *line + 1)) return;
    const double size = std::min(LargestMark, height);
    const double middle = top + height / 2;
    const double left = m_notesWidth + 1;
    QPainterPath triangle({left, middle - size / 2});
    triangle.lineTo(left + size, middle);
    triangle.lineTo(left, middle + size / 2);
    painter.fillPath(triangle, MarkColor);
  });
}

void MarkMargin::PaintNote(QPainter& painter, const LineNote& note, double top, double height) const {
  if (note.Begins) painter.fillRect(QRectF(0, std::max(std::round(top), 0.0), m_notesWidth, 1), RuleColor);
  painter.setPen(NotesColor);
  double left = ColumnGap;
  const std::size_t count = std::min(m_columns.size(), note.Columns.size());
  for (std::size_t column = 0; column < count; ++column) {
    painter.drawText(QRectF(left, top, m_columns[column], height), Qt::AlignLeft | Qt::AlignVCenter,
                     ToQt(note.Columns[column]));
    left += m_columns[column];
  }
}

QString MarkMargin::TipAt(int y) const {
  const auto notes = m_notesWidth > 0 ? Notes() : Ref<ILineNotes>();
  if (!notes) return {};
  QString tip;
  m_view.VisitSeen([&](int block, double top, double height) {
    const auto line = m_text->LineOf(block);
    if (line && y >= top && y < top + height) tip = ToQt(notes->NoteOf(static_cast<std::int32_t>(*line)).Told);
  });
  return tip;
}

void MarkMargin::PaintOverview(QPainter& painter) const {
  painter.fillRect(m_overview.rect(), OverviewGround);
  if (!HasMarks()) return;
  const auto height = static_cast<std::uint64_t>(m_overview.height());
  const std::uint64_t count = m_text->LineCount();
  const auto firstAt = [&](std::uint64_t y) {
    return (y * count + height - 1) / height;
  }; // line whose share begins there
  for (std::uint64_t y = 0; y < height; ++y) {
    if (!m_text->Marks().AnyIn(firstAt(y), firstAt(y + 1))) continue;
    const int top = std::min(static_cast<int>(y), m_overview.height() - BarHeight);
    painter.fillRect(1, top, OverviewWidth - 2, BarHeight, MarkColor);
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
