#pragma once

#include "framework/objects/Event.h"
#include "platform/shared/ControlState.h"
#include "qt/controls/TabOrder.h"
#include "qt/loop/HandlerTurn.h"
#include "qt/values/Mouse.h"
#include "qt/values/Placed.h"

#include <QWidget>

#include <memory>
#include <type_traits>
#include <utility>

namespace portico::qt {

/// What the controls of a form share. It lives as long as the last of them.
struct FormLife {
  bool Gone = false; ///< unloaded: from then on no event of a control fires
  TabOrder Order;
};

/// A control of a form. What was set is kept apart from what the toolkit makes of it: to it, what is
/// hidden is disabled as well.
class Control : public ControlState {
public:
  Control(const ControlDesign& design, std::shared_ptr<FormLife> life)
      : ControlState(design), m_life(std::move(life)) {}

protected:
  FormLife& Life() const { return *m_life; }
  /// Fires an event of the control, unless its form has been unloaded. No event is fired by any other road.
  template <class... Args>
  void Fire(const Event<Args...>& event, std::type_identity_t<Args>... args) const {
    if (m_life->Gone) return;
    const HandlerTurn turn;
    event(args...);
  }
  /// The same, called by the toolkit.
  template <class... Args>
  void EnterAndFire(const Event<Args...>& event, std::type_identity_t<Args>... args) const {
    Enter([&] { Fire(event, args...); });
  }

private:
  std::shared_ptr<FormLife> m_life;
};

/// A control that is a widget, which belongs to the window and outlives the control.
class WidgetControl : public Control {
public:
  WidgetControl(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget);

  QWidget& Widget() const { return m_widget; }

protected:
  /// Called by the toolkit: fires what a press, a move or a release of the mouse is to the control. False for any other
  /// event.
  bool EnterAndFire(const MouseEvents& events, const QEvent& event) const;
  using Control::EnterAndFire;
  void ShowToolTipText() override;
  void ShowEnabled() override { m_widget.setEnabled(Enabled()); }
  void ShowVisible() override { m_widget.setVisible(Visible()); }

private:
  QWidget& m_widget;
};

/// A control that stands in the Tab key's order.
class TabStopControl : public WidgetControl, public virtual ITabOrder {
public:
  TabStopControl(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget);

  bool TabStop() const override { return m_tabStop; }
  void TabStop(bool newValue) override;
  std::int32_t TabIndex() const override { return Life().Order.IndexOf(Widget()); }
  void TabIndex(std::int32_t newValue) override { Life().Order.Move(Widget(), newValue); }

private:
  bool m_tabStop = true;
};

/// A control that the program places.
class PlacedControl : public WidgetControl, public Placed {
public:
  using WidgetControl::WidgetControl;

protected:
  QRect Place() const override { return Widget().geometry(); }
  void Put(const QRect& place) override { Widget().setGeometry(place); }
};

} // namespace portico::qt
