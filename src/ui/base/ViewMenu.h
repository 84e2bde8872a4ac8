#pragma once

#include "ui/base/CommandItems.h"
#include "ui/base/UserCommands.h"

#include <array>

namespace portico {

/// The part of the View menu that every window with a conversation has.
inline constexpr std::array ViewMenu = {
    MenuDesign{.Name = u"mnuView", .Caption = u"10000"},
    MenuDesign{.Name = u"mnuFind", .Caption = u"10010", .Parent = u"mnuView", .Shortcut = u"Ctrl+F"},
    MenuDesign{.Name = u"mnuFindNext", .Caption = u"10020", .Parent = u"mnuView", .Shortcut = u"Ctrl+G"},
    MenuDesign{.Name = u"mnuFindPrevious", .Caption = u"10030", .Parent = u"mnuView", .Shortcut = u"Ctrl+Shift+G"},
    MenuDesign{.Name = u"mnuViewBar0", .Caption = BarCaption, .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuZoomIn", .Caption = u"10040", .Parent = u"mnuView", .Shortcut = u"Ctrl++"},
    MenuDesign{.Name = u"mnuZoomOut", .Caption = u"10050", .Parent = u"mnuView", .Shortcut = u"Ctrl+-"},
    MenuDesign{.Name = u"mnuActualSize", .Caption = u"10060", .Parent = u"mnuView", .Shortcut = u"Ctrl+0"},
};

inline constexpr std::array ViewItems = {
    CommandItem{u"mnuFind", u"Can't look for a text.", Class::Find},
    CommandItem{u"mnuFindNext", u"Can't look for a text.", Class::FindNext},
    CommandItem{u"mnuFindPrevious", u"Can't look for a text.", Class::FindPrevious},
    CommandItem{u"mnuZoomIn", u"Can't change the size of the text.", Class::ZoomIn},
    CommandItem{u"mnuZoomOut", u"Can't change the size of the text.", Class::ZoomOut},
    CommandItem{u"mnuActualSize", u"Can't change the size of the text.", Class::ActualSize},
};

} // namespace portico
