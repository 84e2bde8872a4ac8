#pragma once

#include "framework/objects/Event.h"
#include "platform/IControl.h"
#include "qt/controls/TabOrder.h"
#include "qt/loop/HandlerTurn.h"
#include "qt/values/Placed.h"

#include <QWidget>

#include <memory>
#include <type_traits>

namespace portico::qt {

/// What the controls of a form share. It outlives them.
struct FormLife {
  bool Gone = false; ///< unloaded: from then on no event of a control fires
  TabOrder Order;
};

/// What all controls have in common. What was set is kept apart from what the toolkit makes of it: to it, what is
/// hidden is disabled as well.
class Control : public virtual IControl {
public:
  Control(const ControlDesign& design, std::shared_ptr<FormLife> life);

  StringView Name() const override { return m_name; }
  ControlKind Kind() const override { return m_kind; }
  String Tag() const override { return String(m_tag); }
  String Caption() const override { return m_caption; }
  void Caption(const String& newValue) override;
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override;
  bool Enabled() const override { return m_enabled; }
  void Enabled(bool newValue) override;
  bool Visible() const override { return m_visible; }
  void Visible(bool newValue) override;

protected:
  // What has been set is to show.
  virtual void ShowCaption() {}
  virtual void ShowToolTipText() = 0;
  virtual void ShowEnabled() = 0;
  virtual void ShowVisible() = 0;

  FormLife& Life() const { return *m_life; }
  /// To be called for every event.
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
  StringView m_name;
  ControlKind m_kind;
  StringView m_tag;
  String m_caption;
  String m_toolTipText;
  bool m_enabled = true;
  bool m_visible = true;
  std::shared_ptr<FormLife> m_life;
};

/// A control that is a widget, which belongs to the window and outlives the control.
class WidgetControl : public Control {
public:
  WidgetControl(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget);

  QWidget& Widget() const { return m_widget; }

protected:
  void ShowToolTipText() override;
  void ShowEnabled() override { m_widget.setEnabled(Enabled()); }
  void ShowVisible() override { m_widget.setVisible(Visible()); }

private:
  QWidget& m_widget;
};

/// One that stands in the Tab key's order.
class TabStopControl : public WidgetControl, public virtual ITabOrder {
public:
  TabStopControl(const ControlDesign& design, std::shared_ptr<FormLife> life, QWidget& widget);

  bool TabStop() const override { return m_tabStop; }
  void TabStop(bool newValue) override;
  std::int32_t TabIndex() const override { return Life().Order.IndexOf(Widget()); }
  void TabIndex(std::int32_t newValue) override { Life().Order.IndexOf(Widget(), newValue); }

private:
  bool m_tabStop = true;
};

/// One that is placed by the program.
class PlacedControl : public WidgetControl, public Placed {
public:
  using WidgetControl::WidgetControl;

protected:
  QRect Place() const override { return Widget().geometry(); }
  void Put(const QRect& place) override { Widget().setGeometry(place); }
};

} // namespace portico::qt
