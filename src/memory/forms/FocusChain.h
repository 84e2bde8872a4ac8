#pragma once

#include "memory/forms/Control.h"
#include "platform/shared/TabPositions.h"

namespace portico::memory {

/// Which control of a form has the focus, and the order in which the Tab key reaches them.
class FocusChain {
public:
  explicit FocusChain(Keeper& life) : m_life(life) {}

  /// Of the controls that can have the focus; they outlive the chain.
  TabPositions<FocusControl>& Order() { return m_order; }

  /// The control that has the focus, or will have it as soon as the form has; null if none had it.
  FocusControl* Active() const { return m_active; }
  /// The control that has the focus now; null while the form has it not.
  FocusControl* Current() const { return m_lit ? m_active : nullptr; }
  void MoveTo(FocusControl& control);
  /// To the next tab stop that can be used, or the one before, around the end.
  void MoveOn(bool backward);
  /// The form gets or loses the focus. A form without an active control gives it to its first tab stop.
  void LightUp();
  void GoDark();

private:
  static bool IsReachable(const FocusControl& control);
  /// Lets the controls know who has the focus.
  void Tell();

  Keeper& m_life;
  TabPositions<FocusControl> m_order;
  FocusControl* m_active = nullptr;
  FocusControl* m_told = nullptr; // that it has the focus
  bool m_lit = false;
};

} // namespace portico::memory
