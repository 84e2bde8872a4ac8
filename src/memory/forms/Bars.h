#pragma once

#include "memory/forms/Control.h"
#include "memory/forms/Placement.h"
#include "platform/IMenuItem.h"
#include "platform/IStatusBar.h"
#include "platform/IToolBar.h"
#include "platform/shared/ToolButtonState.h"

#include <memory>
#include <span>
#include <vector>

namespace portico::memory {

/// A menu title, an item or a bar; its container is the menu that it belongs to.
class MenuItem final : public Control, public virtual IMenuItem {
public:
  MenuItem(ControlOwner& form, const MenuDesign& design, MenuItem* menu);

  bool Checked() const override { return m_checked; }
  void Checked(bool newValue) override { m_checked = newValue; }
  Event<>& Click() override { return m_click; }
  bool IsInSight() const override;

  /// What the user does: drops down the menus that lead to the item, from the menu bar or the popup menu that is open,
  /// which fires their clicks, and chooses it. False if one of them or the item is disabled or hidden, or it is a bar.
  bool Choose();
  /// False if the item is disabled or hidden.
  bool PressShortcut();
  StringView Shortcut() const { return m_shortcut; }
  bool IsPopup() const { return m_isPopup; }

private:
  bool DropDown();

  MenuItem* m_menu;
  StringView m_shortcut;
  bool m_isPopup;
  bool m_isTitle;
  bool m_checked;
  Event<> m_click;
};

class ToolBar;

class ToolButton final : public ToolButtonState {
public:
  ToolButton(ToolBar& bar, const ToolButtonDesign& design) : ToolButtonState(design), m_bar(bar) {}

  /// What the user does. False if the button is disabled, hidden or a separator.
  bool Press();

private:
  ToolBar& m_bar;
};

/// Stands at the top of its form, 42 pixels high.
class ToolBar final : public Control, public Placement, public virtual IToolBar {
public:
  ToolBar(ControlOwner& form, std::span<const ToolButtonDesign> buttons, double width);

  std::vector<IToolButton*> Buttons() override;
  ToolButton& Buttons(StringView Key) override;
  Event<IToolButton&>& ButtonClick() override { return m_buttonClick; }

private:
  friend class ToolButton;

  std::vector<std::unique_ptr<ToolButton>> m_buttons;
  Event<IToolButton&> m_buttonClick;
};

class StatusPanel final : public IStatusPanel {
public:
  explicit StatusPanel(const StatusPanelDesign& design) : m_design(design) {}

  String Text() const override { return m_text; }
  void Text(const String& newValue) override { m_text = newValue; }
  String ToolTipText() const override { return m_toolTipText; }
  void ToolTipText(const String& newValue) override { m_toolTipText = newValue; }

  const StatusPanelDesign& Design() const { return m_design; }

private:
  StatusPanelDesign m_design;
  String m_text;
  String m_toolTipText;
};

/// Stands at the bottom of its form, 25 pixels high and as wide as the form.
class StatusBar final : public Control, public Placement, public virtual IStatusBar {
public:
  StatusBar(ControlOwner& form, std::span<const StatusPanelDesign> panels);

  StatusPanel& Panels(std::int32_t Index) override;

private:
  std::vector<std::unique_ptr<StatusPanel>> m_panels;
};

} // namespace portico::memory
