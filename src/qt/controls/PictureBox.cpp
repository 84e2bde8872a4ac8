#include "qt/controls/PictureBox.h"

#include "qt/controls/Look.h"
#include "qt/values/Keys.h"

#include <QMouseEvent>
#include <QPainter>

#include <utility>

namespace portico::qt {
namespace {

MouseEvent Translated(const QMouseEvent& event, Qt::MouseButtons buttons) {
  return {.Button = (buttons.testFlag(Qt::LeftButton) ? LeftButton : 0) +
                    (buttons.testFlag(Qt::RightButton) ? RightButton : 0),
          .Shift = ShiftState(event.modifiers()),
          .X = event.position().x() * FormUnitsPerPixel,
          .Y = event.position().y() * FormUnitsPerPixel};
}

} // namespace

PictureBox::PictureBox(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget)
    : PlacedControl(design, std::move(life), widget),
      m_filter(widget, [this](QObject& /*watched*/, QEvent& event) { return Handle(event); }) {
  widget.setMouseTracking(true);
  if (design.Image.empty()) return;
  m_image = IconOf(design.Image);
  const QSize size = IconSizeOf(design.Image);
  widget.setFixedSize(size.isEmpty() ? QSize(32, 32) : size);
  widget.setMinimumSize(0, 0);
  widget.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}

void PictureBox::BackColor(std::int32_t newValue) {
  m_backColor = newValue;
  Widget().update();
}

void PictureBox::MousePointer(std::int32_t shape) {
  if (shape == 0) {
    Widget().unsetCursor();
  } else {
    Widget().setCursor(PointerShape(shape));
  }
}

void PictureBox::Paint() const {
  QPainter painter(&Widget());
  if (m_backColor != SystemButtonFace || m_image.isNull()) {
    painter.fillRect(Widget().rect(), ColorOf(m_backColor, Widget().palette()));
  }
  m_image.paint(&painter, Widget().rect());
}

bool PictureBox::Handle(QEvent& event) {
  switch (event.type()) {
  case QEvent::Paint:
    Paint();
    return true;
  case QEvent::MouseButtonPress: {
    const auto& mouse = static_cast<QMouseEvent&>(event);
    EnterAndFire(m_mouseDown, Translated(mouse, mouse.button()));
    return true;
  }
  case QEvent::MouseMove: {
    const auto& mouse = static_cast<QMouseEvent&>(event);
    EnterAndFire(m_mouseMove, Translated(mouse, mouse.buttons()));
    return true;
  }
  case QEvent::MouseButtonRelease: {
    const auto& mouse = static_cast<QMouseEvent&>(event);
    EnterAndFire(m_mouseUp, Translated(mouse, mouse.button()));
    return true;
  }
  default:
    return false;
  }
}

} // namespace portico::qt
