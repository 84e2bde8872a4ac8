#include "qt/forms/MenuBuilder.h"

#include "qt/forms/MenuItem.h"

#include <QMenuBar>

#include <algorithm>
#include <map>
#include <memory>

namespace portico::qt {

void BuildMenus(const FormDesign& design, QMainWindow& window, FormParts& parts) {
  std::map<StringView, QMenu*> menus;
  for (const MenuDesign& item : design.Menus) {
    QMenu* parent = item.Parent.empty() ? nullptr : menus.at(item.Parent);
    const bool isTitle = parent == nullptr || std::any_of(design.Menus.begin(), design.Menus.end(),
                                                          [&](const auto& other) { return other.Parent == item.Name; });
    if (!isTitle) {
      auto* action = new QAction(parent);
      parent->addAction(action);
      parts.Controls.push_back(std::make_shared<MenuItem>(item, parts.Life, *action));
      continue;
    }
    auto* menu = new QMenu(parent != nullptr ? static_cast<QWidget*>(parent) : &window);
    menus[item.Name] = menu;
    if (parent != nullptr) {
      parent->addMenu(menu);
    } else if (!item.IsPopup) {
      window.menuBar()->addMenu(menu);
    }
    parts.Controls.push_back(std::make_shared<MenuItem>(item, parts.Life, *menu));
  }
}

} // namespace portico::qt
