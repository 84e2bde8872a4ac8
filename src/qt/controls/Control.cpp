#include "qt/controls/Control.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "qt/values/QtText.h"

#include <utility>

namespace portico::qt {
Control::Control(const ControlDesign& design, std::shared_ptr<FormLife> life)
    : m_name(design.Name), m_kind(design.Kind), m_tag(design.Tag), m_visible(design.Visible), m_life(std::move(life)) {
  if (HasCaption(m_kind)) m_caption = design.Caption;
  if (HasToolTip(m_kind)) m_toolTipText = design.ToolTipText;
}

void Control::Caption(const String& newValue) {
  if (!HasCaption(m_kind)) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  m_caption = newValue;
  ShowCaption();
}

void Control::ToolTipText(const String& newValue) {
  if (!HasToolTip(m_kind)) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  m_toolTipText = newValue;
  ShowToolTipText();
}

void Control::Enabled(bool newValue) {
  m_enabled = newValue;
  ShowEnabled();
}

void Control::Visible(bool newValue) {
  m_visible = newValue;
  ShowVisible();
}

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
