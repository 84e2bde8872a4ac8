#include "qt/forms/MenuItem.h"

#include "qt/values/QtText.h"

#include <QKeySequence>

#include <memory>
#include <utility>

namespace portico::qt {

MenuItem::MenuItem(const MenuDesign& design, std::shared_ptr<FormLife> life, QAction& action, QMenu* menu)
    : Control(AsControl(design), std::move(life)), m_action(action), m_menu(menu), m_checked(design.Checked) {
  action.setObjectName(ToQt(design.Name));
  action.setMenuRole(QAction::NoRole); // an item stays where its table has it
  if (!design.Shortcut.empty()) action.setShortcut(QKeySequence(ToQt(design.Shortcut), QKeySequence::PortableText));
  MenuItem::ShowCaption();
  MenuItem::ShowVisible();
  Checked(design.Checked);
}

MenuItem::MenuItem(const MenuDesign& design, std::shared_ptr<FormLife> life, QMenu& menu)
    : MenuItem(design, std::move(life), *menu.menuAction(), &menu) {
  menu.setObjectName(ToQt(design.Name));
  QObject::connect(&menu, &QMenu::aboutToShow, &menu, [this] { EnterAndFire(m_click); });
}

MenuItem::MenuItem(const MenuDesign& design, std::shared_ptr<FormLife> life, QAction& action)
    : MenuItem(design, std::move(life), action, nullptr) {
  QObject::connect(&action, &QAction::triggered, &action, [this] {
    m_action.setChecked(m_checked); // the click has turned it
    EnterAndFire(m_click);
  });
}

void MenuItem::Checked(bool newValue) {
  m_checked = newValue;
  if (newValue) m_action.setCheckable(true);
  m_action.setChecked(newValue);
}

void MenuItem::ShowCaption() {
  const bool isBar = Caption() == BarCaption;
  m_action.setSeparator(isBar);
  m_action.setText(isBar ? QString() : ToQt(Caption())); // a style would write it beside the line
  if (m_menu != nullptr) m_menu->setAccessibleName(m_action.iconText());
}

} // namespace portico::qt
