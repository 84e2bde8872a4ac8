#include "platform/shared/ToolButtonState.h"

#include "platform/shared/Checks.h"

namespace portico {

void ToolButtonState::Enabled(bool newValue) {
  if (newValue == m_enabled) return;
  m_enabled = newValue;
  ShowEnabled();
}

void ToolButtonState::Visible(bool newValue) {
  if (newValue == m_visible) return;
  m_visible = newValue;
  ShowVisible();
}

void ToolButtonState::Value(std::int32_t newValue) {
  CheckValue(newValue, 0, 1);
  if (newValue == m_value) return;
  m_value = newValue;
  ShowValue();
}

void ToolButtonState::ToolTipText(const String& newValue) {
  if (newValue == m_toolTipText) return;
  m_toolTipText = newValue;
  ShowToolTipText();
}

} // namespace portico
