#include "ui/base/ActionGroup.h"

namespace portico {

ActionGroup::ActionGroup(IForm& form, std::initializer_list<StringView> items,
                         std::initializer_list<StringView> buttons) {
  for (const StringView name : items) m_items.push_back(&FindControl<IMenuItem>(form, name));
  for (const StringView key : buttons) m_buttons.push_back(&FindControl<IToolBar>(form, ToolBarName).Buttons(key));
}

void ActionGroup::Enabled(bool newValue) const {
  for (IMenuItem* item : m_items) item->Enabled(newValue);
  for (IToolButton* button : m_buttons) button->Enabled(newValue);
}

} // namespace portico
