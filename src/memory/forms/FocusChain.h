#pragma once

#include "memory/forms/Keeper.h"
#include "platform/shared/TabPositions.h"

namespace portico::memory {

/// What can have the focus in a form.
class IFocusStop {
public:
  virtual ~IFocusStop() = default;

  virtual bool IsTabStop() const = 0;
  /// In sight and enabled.
  virtual bool IsReachable() const = 0;
  /// It has got the focus, or has lost it.
  virtual void Tell(bool hasFocus) = 0;
};

/// Which control of a form has the focus, and the order in which the Tab key reaches them.
class FocusChain {
public:
  explicit FocusChain(Keeper& life) : m_life(life) {}

  /// Of the controls that can have the focus; they outlive the chain.
  TabPositions<IFocusStop>& Order() { return m_order; }

  /// The control that has the focus, or will have it as soon as the form has it; null if none has had it.
  IFocusStop* Active() const { return m_active; }
  /// The control that has the focus now; null while the form does not have the focus.
  IFocusStop* Current() const { return m_lit ? m_active : nullptr; }
  void MoveTo(IFocusStop& stop);
  /// To the next tab stop that can be used, or the one before, around the end.
  void MoveOn(bool backward);
  /// The form gets or loses the focus. A form without an active control gives it to its first tab stop.
  void LightUp();
  void GoDark();

private:
  /// Lets the controls know who has the focus.
  void Tell();

  Keeper& m_life;
  TabPositions<IFocusStop> m_order;
  IFocusStop* m_active = nullptr;
  IFocusStop* m_told = nullptr; // that it has the focus
  bool m_lit = false;
};

} // namespace portico::memory
