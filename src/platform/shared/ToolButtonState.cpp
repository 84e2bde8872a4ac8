#include "platform/shared/ToolButtonState.h"

#include "platform/shared/Checks.h"

namespace portico {

void ToolButtonState::Enabled(bool newValue) {
  m_enabled = newValue;
  ShowEnabled();
}

void ToolButtonState::Visible(bool newValue) {
  m_visible = newValue;
  ShowVisible();
}

void ToolButtonState::Value(std::int32_t newValue) {
  CheckValue(newValue, 0, 1);
  m_value = newValue;
  ShowValue();
}

void ToolButtonState::ToolTipText(const String& newValue) {
  m_toolTipText = newValue;
  ShowToolTipText();
}

} // namespace portico
