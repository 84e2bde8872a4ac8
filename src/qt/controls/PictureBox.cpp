#include "qt/controls/PictureBox.h"

#include "qt/controls/Icons.h"
#include "qt/values/Colors.h"
#include "qt/values/Pointers.h"

#include <QPainter>

#include <memory>
#include <utility>

namespace portico::qt {

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
  if (shape == OwnPointer) {
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
  default:
    return EnterAndFire(m_mouse, event);
  }
}

} // namespace portico::qt
