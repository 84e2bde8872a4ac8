#include "qt/controls/Canvas.h"

#include "platform/KeyCodes.h"
#include "qt/loop/EventFilter.h"
#include "qt/values/DrawingPainter.h"
#include "qt/values/Keys.h"
#include "qt/values/QtText.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QWheelEvent>

#include <utility>

namespace portico::qt {
namespace {

constexpr double WheelNotch = 120; // of the toolkit's eighths of a degree

std::int32_t CodeOf(const QKeyEvent& event) {
  switch (event.key()) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: // on the same key, without Shift
    return PlusKey;
  case Qt::Key_Minus:
    return MinusKey;
  case Qt::Key_Tab:
  case Qt::Key_Backtab: // lead on
  case Qt::Key_Return:
  case Qt::Key_Enter:
  case Qt::Key_Shift:
  case Qt::Key_Control:
  case Qt::Key_Alt:
  case Qt::Key_CapsLock:
    return 0;
  default:
    return KeyCode(event.key());
  }
}

} // namespace

CanvasWidget::CanvasWidget(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (Painting) Painting(painter);
}

Canvas::Canvas(const ControlDesign& design, std::shared_ptr<FormLife> life, CanvasWidget& widget)
    : TabStopControl(design, std::move(life), widget),
      m_canvas(widget),
      m_filter(std::make_unique<EventFilter>(widget,
                                             [this](QObject& /*watched*/, QEvent& event) { return Handle(event); })) {
  widget.Painting = [this](QPainter& painter) { Paint(painter); };
}

void Canvas::Show(Drawing newValue) {
  m_drawing = std::move(newValue);
  m_canvas.update();
}

void Canvas::Describe(const String& name, const String& description) {
  m_canvas.setAccessibleName(ToQt(name));
  m_canvas.setAccessibleDescription(ToQt(description));
}

double Canvas::ExtentOf(StringView text) const {
  return QFontMetricsF(m_canvas.font(), &m_canvas).horizontalAdvance(ToQt(text));
}

double Canvas::LineHeight() const { return QFontMetricsF(m_canvas.font(), &m_canvas).height(); }

void Canvas::Paint(QPainter& painter) const {
  const Inks inks(m_canvas.palette());
  painter.fillRect(m_canvas.rect(), inks.ColorOf(Ink::Ground));
  qt::Paint(m_drawing, inks, painter);
  if (!m_canvas.hasFocus()) return;
  painter.setPen(m_canvas.palette().color(QPalette::Highlight));
  painter.drawRect(m_canvas.rect().adjusted(0, 0, -1, -1));
}

bool Canvas::Handle(QEvent& event) {
  switch (event.type()) {
  case QEvent::Wheel:
    HandleWheel(static_cast<QWheelEvent&>(event));
    return true;
  case QEvent::KeyPress:
    return HandleKey(static_cast<QKeyEvent&>(event));
  case QEvent::FocusIn:
  case QEvent::FocusOut:
  case QEvent::PaletteChange:
    m_canvas.update();
    return false;
  default:
    return EnterAndFire(m_mouse, event);
  }
}

bool Canvas::HandleKey(const QKeyEvent& event) {
  const std::int32_t code = CodeOf(event);
  if (code == 0) return false;
  EnterAndFire(m_keyDown, code, qt::ShiftState(event.modifiers()));
  return true;
}

void Canvas::HandleWheel(const QWheelEvent& event) {
  const int turned = event.angleDelta().y() != 0 ? event.angleDelta().y() : event.angleDelta().x(); // Alt turns it
  if (turned == 0) return;
  const MouseEvent mouse{.Shift = qt::ShiftState(event.modifiers()),
                         .X = event.position().x() * FormUnitsPerPixel,
                         .Y = event.position().y() * FormUnitsPerPixel};
  EnterAndFire(m_wheel, mouse, turned / WheelNotch);
}

} // namespace portico::qt
