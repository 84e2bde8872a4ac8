#pragma once

#include "memory/forms/Control.h"
#include "memory/forms/FocusChain.h"

namespace portico::memory {

/// A control that can have the focus.
class FocusControl : public Control, public IFocusStop {
public:
  FocusControl(ControlOwner& form, const ControlDesign& design, Control* container);

  bool IsTabStop() const override { return m_tabStop; }
  void IsTabStop(bool newValue) { m_tabStop = newValue; }
  bool IsReachable() const override { return Control::IsReachable(); }
  /// Moves the focus here, unless the control is disabled or out of sight. In a form that is not in front it is taken
  /// when the form gets the focus.
  void TakeFocus() { Owner().Focus().MoveTo(*this); }
  bool HasFocus() const { return Owner().Focus().Current() == this; }
  Event<>& GotFocus() { return m_gotFocus; }
  Event<>& LostFocus() { return m_lostFocus; }

private:
  void Tell(bool hasFocus) override;

  bool m_tabStop = true;
  Event<> m_gotFocus;
  Event<> m_lostFocus;
};

} // namespace portico::memory
