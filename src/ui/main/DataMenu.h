#pragma once

#include "ui/base/CommandItems.h"
#include "ui/base/UserCommands.h"

#include <array>

namespace portico {

inline constexpr std::array DataMenu = {
    MenuDesign{.Name = u"mnuData", .Caption = u"10200"},
    MenuDesign{.Name = u"mnuStopAtErrors", .Caption = u"10210", .Parent = u"mnuData"},
};

inline constexpr std::array DataItems = {
    CommandItem{u"mnuStopAtErrors", u"Can't change when a run stops.", Class::StopAtErrors},
};

} // namespace portico
