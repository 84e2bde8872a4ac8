#pragma once

#include "ui/base/CommandItems.h"
#include "ui/base/UserCommands.h"

#include <array>

namespace portico {

/// What the main window has in its View menu behind what every window with a conversation has there.
inline constexpr std::array MainViewMenu = {
    MenuDesign{.Name = u"mnuTiming", .Caption = u"10080", .Parent = u"mnuView"},
};

inline constexpr std::array MainViewItems = {
    CommandItem{u"mnuTiming", u"Can't show the times.", Class::ShowTimes},
};

} // namespace portico
