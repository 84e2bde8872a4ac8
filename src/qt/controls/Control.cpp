#include "qt/controls/Control.h"

#include "qt/values/QtText.h"

#include <utility>

namespace portico::qt {

WidgetControl::WidgetControl(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget)
    : Control(design, std::move(life)), m_widget(widget) {
  widget.setObjectName(ToQt(design.Name));
  WidgetControl::ShowToolTipText();
  // A child of a window is visible unless it is told not to be.
  if (!Visible()) widget.hide();
}

void WidgetControl::ShowToolTipText() {
  m_widget.setToolTip(ToQt(ToolTipText()));
  if (Caption().empty()) m_widget.setAccessibleName(ToQt(ToolTipText()));
}

bool WidgetControl::EnterAndFire(const MouseEvents& events, const QEvent& event) const {
  const bool isMove = event.type() == QEvent::MouseMove;
  if (!isMove && event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonRelease) return false;
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  const auto& fired = isMove ? events.Move : event.type() == QEvent::MouseButtonPress ? events.Down : events.Up;
  EnterAndFire(fired, ToMouseEvent(mouse, isMove ? mouse.buttons() : mouse.button(), mouse.position()));
  return true;
}

TabStopControl::TabStopControl(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget)
    : WidgetControl(design, std::move(life), widget) {
  Life().Order.Add(widget);
}

void TabStopControl::TabStop(bool newValue) {
  m_tabStop = newValue;
  const int policy = Widget().focusPolicy();
  Widget().setFocusPolicy(
      static_cast<Qt::FocusPolicy>(newValue ? policy | Qt::TabFocus : policy & ~static_cast<int>(Qt::TabFocus)));
}

} // namespace portico::qt
