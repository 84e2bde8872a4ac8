#pragma once

#include "framework/objects/Event.h"
#include "memory/forms/Keeper.h"
#include "platform/shared/ControlState.h"

#include <type_traits>

namespace portico::memory {

class Form;

/// A control of a form. The user sees a control, and can use it, if that holds for the control,
/// for all that it stands in and for its form.
class Control : public ControlState {
public:
  /// Stands in `container`, or in the form itself. Form and container outlive the control.
  Control(Form& form, const ControlDesign& design, Control* container = nullptr);

  Control* Container() const { return m_container; }
  /// The control and all that it stands in is visible; whether its form is does not count.
  virtual bool IsInSight() const;
  /// The user can do something with it now: it is in sight and enabled, and so is all that it stands in; its form is on
  /// the screen, and no modal form is in front of it.
  bool IsUsable() const;

protected:
  using Turn = Keeper::Turn;

  Form& Owner() const { return m_form; }
  Keeper& Life() const;
  /// To be called for every event: the form outlives its handlers.
  template <class... Args>
  void Fire(const Event<Args...>& event, std::type_identity_t<Args>... args) const {
    const Turn turn(Life());
    event(args...);
  }

private:
  Form& m_form;
  Control* m_container;
};

/// A control that can have the focus.
class FocusControl : public Control {
public:
  FocusControl(Form& form, const ControlDesign& design, Control* container);

  bool IsTabStop() const { return m_tabStop; }
  void IsTabStop(bool newValue) { m_tabStop = newValue; }
  /// Moves the focus here, unless the control is disabled or out of sight. In a form that is not in front it is taken
  /// when the form gets the focus.
  void TakeFocus();
  bool HasFocus() const;
  Event<>& GotFocus() { return m_gotFocus; }
  Event<>& LostFocus() { return m_lostFocus; }

private:
  friend class FocusChain;

  bool m_tabStop = true;
  Event<> m_gotFocus;
  Event<> m_lostFocus;
};

} // namespace portico::memory
