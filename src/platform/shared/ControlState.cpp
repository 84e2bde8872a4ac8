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
  m_caption = newValue;
  ShowCaption();
}

void ControlState::ToolTipText(const String& newValue) {
  if (!HasToolTip(Kind())) HuntERR::RaiseStandard(ErrorNumber::PropertyNotFound);
  m_toolTipText = newValue;
  ShowToolTipText();
}

void ControlState::Enabled(bool newValue) {
  m_enabled = newValue;
  ShowEnabled();
}

void ControlState::Visible(bool newValue) {
  m_visible = newValue;
  ShowVisible();
}

} // namespace portico
