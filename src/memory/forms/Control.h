#pragma once

#include "framework/objects/Event.h"
#include "memory/forms/ControlOwner.h"
#include "platform/shared/ControlState.h"

#include <type_traits>

namespace portico::memory {

/// A control of a form. The user sees a control, and can use it, if that holds for the control,
/// for all that it stands in and for its form.
class Control : public ControlState {
public:
  /// Stands in `container`, or in the form itself. Form and container outlive the control.
  Control(ControlOwner& form, const ControlDesign& design, Control* container = nullptr)
      : ControlState(design), m_form(form), m_container(container) {}

  Control* Container() const { return m_container; }
  /// The control and all that it stands in is visible; whether its form is does not count.
  virtual bool IsInSight() const;
  /// It is in sight, and it is enabled and so is all that it stands in.
  bool IsReachable() const;
  /// The user can do something with it now: it is reachable, its form is on the screen, and no modal form is in front
  /// of it.
  bool IsUsable() const { return IsReachable() && m_form.TakesInput(); }

protected:
  using Turn = Keeper::Turn;

  ControlOwner& Owner() const { return m_form; }
  Keeper& Life() const { return m_form.Life(); }
  /// Fires an event of the control, and keeps the form alive until its handlers have returned. No event is fired by any
  /// other road.
  template <class... Args>
  void Fire(const Event<Args...>& event, std::type_identity_t<Args>... args) const {
    const Turn turn(Life());
    event(args...);
  }

private:
  ControlOwner& m_form;
  Control* m_container;
};

} // namespace portico::memory
