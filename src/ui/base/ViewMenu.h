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
    MenuDesign{.Name = u"mnuViewBar1", .Caption = BarCaption, .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuNextError", .Caption = u"10070", .Parent = u"mnuView", .Shortcut = u"F7"},
    MenuDesign{.Name = u"mnuPreviousError", .Caption = u"10071", .Parent = u"mnuView", .Shortcut = u"Shift+F7"},
    MenuDesign{.Name = u"mnuErrors", .Caption = u"10072", .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuViewBar2", .Caption = BarCaption, .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuPlot", .Caption = u"10090", .Parent = u"mnuView"},
    MenuDesign{.Name = u"mnuShowPicture", .Caption = u"10095", .Parent = u"mnuView"},
};

inline constexpr std::array ViewItems = {
    CommandItem{u"mnuFind", u"Can't look for a text.", Class::Find},
    CommandItem{u"mnuFindNext", u"Can't look for a text.", Class::FindNext},
    CommandItem{u"mnuFindPrevious", u"Can't look for a text.", Class::FindPrevious},
    CommandItem{u"mnuZoomIn", u"Can't change the size of the text.", Class::ZoomIn},
    CommandItem{u"mnuZoomOut", u"Can't change the size of the text.", Class::ZoomOut},
    CommandItem{u"mnuActualSize", u"Can't change the size of the text.", Class::ActualSize},
};

/// Their commands take the errors of the window's conversation, and the window. They are of use while there are errors.
inline constexpr std::array ErrorItems = {
    CommandItem{u"mnuNextError", u"Can't go to an error.", Class::NextError},
    CommandItem{u"mnuPreviousError", u"Can't go to an error.", Class::PreviousError},
    CommandItem{u"mnuErrors", u"Can't list the errors.", Class::ListErrors},
};

/// Takes what the window's conversation holds to be drawn, and the window.
inline constexpr std::array PlotItems = {
    CommandItem{u"mnuPlot", u"Can't draw the numbers.", Class::ShowPlot},
};

/// Its command takes what knows the answer under the caret, and the window. It is of use while there is one.
inline constexpr std::array PictureItems = {
    CommandItem{u"mnuShowPicture", u"Can't show the picture.", Class::ShowPicture},
};

} // namespace portico
