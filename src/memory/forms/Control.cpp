#include "memory/forms/Control.h"

namespace portico::memory {

bool Control::IsInSight() const { return Visible() && (m_container == nullptr || m_container->IsInSight()); }

bool Control::IsReachable() const {
  for (const Control* control = this; control != nullptr; control = control->m_container) {
    if (!control->Enabled()) return false;
  }
  return IsInSight();
}

} // namespace portico::memory
