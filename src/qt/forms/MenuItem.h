#pragma once

#include "platform/FormDesign.h"
#include "platform/IMenuItem.h"
#include "qt/controls/Control.h"

#include <QAction>
#include <QMenu>

#include <memory>

namespace portico::qt {

/// A menu title, an item or a bar: an action, and for a title the menu that it drops down. Both belong to the window.
class MenuItem final : public Control, public virtual IMenuItem {
public:
  /// A title.
  MenuItem(const MenuDesign& design, std::shared_ptr<FormLife> life, QMenu& menu);
  /// An item or a bar.
  MenuItem(const MenuDesign& design, std::shared_ptr<FormLife> life, QAction& action);

  bool Checked() const override { return m_checked; }
  void Checked(bool newValue) override;
  Event<>& Click() override { return m_click; }

  QAction& Action() const { return m_action; }
  /// Null for an item.
  QMenu* Menu() const { return m_menu; }

protected:
  void ShowCaption() override;
  void ShowEnabled() override { m_action.setEnabled(Enabled()); }
  void ShowVisible() override { m_action.setVisible(Visible()); }

private:
  MenuItem(const MenuDesign& design, std::shared_ptr<FormLife> life, QAction& action, QMenu* menu);

  QAction& m_action;
  QMenu* m_menu;
  bool m_checked;
  Event<> m_click;
};

} // namespace portico::qt
