#pragma once

#include "platform/IForm.h"
#include "platform/IToolBar.h"

namespace portico {

/// Menu items and buttons that stand for the same action, and so are enabled and disabled together.
class ActionGroup {
public:
  ActionGroup(IForm& form, std::initializer_list<StringView> items, std::initializer_list<StringView> buttons = {});

  void Enabled(bool newValue) const;

private:
  std::vector<IMenuItem*> m_items;
  std::vector<IToolButton*> m_buttons;
};

} // namespace portico
