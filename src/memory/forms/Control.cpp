#include "memory/forms/Control.h"

#include "memory/forms/Form.h"

namespace portico::memory {

Control::Control(Form& form, const ControlDesign& design, Control* container)
    : ControlState(design), m_form(form), m_container(container) {}

bool Control::IsInSight() const { return Visible() && (m_container == nullptr || m_container->IsInSight()); }

bool Control::IsUsable() const {
  for (const Control* control = this; control != nullptr; control = control->m_container) {
    if (!control->Enabled()) return false;
  }
  return IsInSight() && m_form.TakesInput();
}

Keeper& Control::Life() const { return m_form.Life(); }

FocusControl::FocusControl(Form& form, const ControlDesign& design, Control* container)
    : Control(form, design, container) {
  form.Focus().Order().Add(*this);
}

void FocusControl::TakeFocus() { Owner().Focus().MoveTo(*this); }

bool FocusControl::HasFocus() const { return Owner().Focus().Current() == this; }

} // namespace portico::memory
