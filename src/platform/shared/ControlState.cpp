#include "platform/shared/ControlState.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

ControlState::ControlState(const ControlDesign& design) : m_design(design), m_visible(design.Visible) {
  if (HasCaption(design.Kind)) m_caption = design.Caption;
  if (HasToolTip(design.Kind)) m_toolTipText = design.ToolTipText;
}

void ControlState::Caption(const String& newValue) {
  if (!HasCaption(Kind())) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  if (newValue == m_caption) return;
  m_caption = newValue;
  ShowCaption();
}

void ControlState::ToolTipText(const String& newValue) {
  if (!HasToolTip(Kind())) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  if (newValue == m_toolTipText) return;
  m_toolTipText = newValue;
  ShowToolTipText();
}

void ControlState::Enabled(bool newValue) {
  if (newValue == m_enabled) return;
  m_enabled = newValue;
  ShowEnabled();
}

void ControlState::Visible(bool newValue) {
  if (newValue == m_visible) return;
  m_visible = newValue;
  ShowVisible();
}

} // namespace portico
