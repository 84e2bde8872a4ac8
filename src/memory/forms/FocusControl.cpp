#include "memory/forms/FocusControl.h"

namespace portico::memory {

FocusControl::FocusControl(ControlOwner& form, const ControlDesign& design, Control* container)
    : Control(form, design, container) {
  form.Focus().Order().Add(*this);
}

void FocusControl::Tell(bool hasFocus) {
  if (hasFocus) {
    m_gotFocus();
  } else {
    m_lostFocus();
  }
}

} // namespace portico::memory
