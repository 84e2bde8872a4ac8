#pragma once

#include "ui/base/CommandItems.h"
#include "ui/base/UserCommands.h"

#include <array>

namespace portico {

inline constexpr std::array DataMenu = {
    MenuDesign{.Name = u"mnuData", .Caption = u"10200"},
    MenuDesign{.Name = u"mnuStopAtErrors", .Caption = u"10210", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuTimeout", .Caption = u"10260", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuClearDevice", .Caption = u"10261", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuGoToLocal", .Caption = u"10262", .Parent = u"mnuData"},
};

inline constexpr std::array DataItems = {
    CommandItem{u"mnuStopAtErrors", u"Can't change when a run stops.", Class::StopAtErrors},
    CommandItem{u"mnuTimeout", u"Can't set the time-out.", Class::SetTimeout},
    CommandItem{u"mnuClearDevice", u"Can't clear the device.", Class::ClearDevice},
    CommandItem{u"mnuGoToLocal", u"Can't give the front panel back.", Class::GoToLocal},
};

} // namespace portico
