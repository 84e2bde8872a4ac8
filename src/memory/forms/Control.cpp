#include "memory/forms/Control.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "memory/forms/Form.h"

namespace portico::memory {

Control::Control(Form& form, const ControlDesign& design, Control* container)
    : m_form(form), m_design(design), m_container(container), m_visible(design.Visible) {
  if (HasCaption(design.Kind)) m_caption = design.Caption;
  if (HasToolTip(design.Kind)) m_toolTipText = design.ToolTipText;
}

void Control::Caption(const String& newValue) {
  if (!HasCaption(Kind())) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  m_caption = newValue;
}

void Control::ToolTipText(const String& newValue) {
  if (!HasToolTip(Kind())) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  m_toolTipText = newValue;
}

bool Control::IsInSight() const { return m_visible && (m_container == nullptr || m_container->IsInSight()); }

bool Control::IsUsable() const {
  for (const Control* control = this; control != nullptr; control = control->m_container) {
    if (!control->m_enabled) return false;
  }
  return IsInSight() && m_form.TakesInput();
}

Keeper& Control::Life() const { return m_form.Life(); }

FocusControl::FocusControl(Form& form, const ControlDesign& design, Control* container)
    : Control(form, design, container) {
  form.Focus().Add(*this);
}

void FocusControl::TakeFocus() { Owner().Focus().MoveTo(*this); }

bool FocusControl::HasFocus() const { return Owner().Focus().Current() == this; }

} // namespace portico::memory
