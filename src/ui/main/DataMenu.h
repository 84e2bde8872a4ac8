#pragma once

#include "ui/base/CommandItems.h"
#include "ui/base/UserCommands.h"

#include <array>

namespace portico {

inline constexpr std::array DataMenu = {
    MenuDesign{.Name = u"mnuData", .Caption = u"10200"},
    MenuDesign{.Name = u"mnuStopAtErrors", .Caption = u"10210", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuCompletionBar", .Caption = BarCaption, .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuComplete", .Caption = u"10220", .Parent = u"mnuData", .Shortcut = u"Ctrl+Space"},
    MenuDesign{.Name = u"mnuAskForCommands", .Caption = u"10221", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuRecallBar", .Caption = BarCaption, .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuEarlierLine", .Caption = u"10230", .Parent = u"mnuData", .Shortcut = u"Alt+Up"},
    MenuDesign{.Name = u"mnuLaterLine", .Caption = u"10231", .Parent = u"mnuData", .Shortcut = u"Alt+Down"},
    MenuDesign{.Name = u"mnuSearchSentLines", .Caption = u"10232", .Parent = u"mnuData", .Shortcut = u"Ctrl+R"},
    MenuDesign{.Name = u"mnuPutBackLastRun", .Caption = u"10233", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuKeepSentLines", .Caption = u"10234", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuForgetSentLines", .Caption = u"10235", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuRepeatBar", .Caption = BarCaption, .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuRepeat", .Caption = u"10240", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuAnswerBar", .Caption = BarCaption, .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuSaveAnswer", .Caption = u"10250", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuFetchAnswer", .Caption = u"10251", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuDeviceBar", .Caption = BarCaption, .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuTimeout", .Caption = u"10260", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuClearDevice", .Caption = u"10261", .Parent = u"mnuData"},
    MenuDesign{.Name = u"mnuGoToLocal", .Caption = u"10262", .Parent = u"mnuData"},
};

inline constexpr std::array DataItems = {
    CommandItem{u"mnuStopAtErrors", u"Can't change when a run stops.", Class::StopAtErrors},
    CommandItem{u"mnuAskForCommands", u"Can't ask for the commands.", Class::AskForCommands},
    CommandItem{u"mnuEarlierLine", u"Can't bring a line back.", Class::EarlierLine},
    CommandItem{u"mnuLaterLine", u"Can't bring a line back.", Class::LaterLine},
    CommandItem{u"mnuSearchSentLines", u"Can't bring a line back.", Class::SearchSentLines},
    CommandItem{u"mnuPutBackLastRun", u"Can't put the lines back.", Class::PutBackLastRun},
    CommandItem{u"mnuKeepSentLines", u"Can't change whether sent lines are kept.", Class::KeepSentLines},
    CommandItem{u"mnuForgetSentLines", u"Can't forget the sent lines.", Class::ForgetSentLines},
    CommandItem{u"mnuFetchAnswer", u"Can't fetch an answer.", Class::FetchAnswer},
    CommandItem{u"mnuTimeout", u"Can't set the time-out.", Class::SetTimeout},
    CommandItem{u"mnuClearDevice", u"Can't clear the device.", Class::ClearDevice},
    CommandItem{u"mnuGoToLocal", u"Can't give the front panel back.", Class::GoToLocal},
};

/// Their commands take what runs lines repeatedly. They are of use whenever Run is.
inline constexpr std::array RepeatItems = {
    CommandItem{u"mnuRepeat", u"Can't run instructions.", Class::Repeat},
};

/// Its command takes the list of offers.
inline constexpr std::array CompletionItems = {
    CommandItem{u"mnuComplete", u"Can't complete.", Class::Complete},
};

/// Their commands take what knows the answer under the history's caret. They are of use while there is one.
inline constexpr std::array AnswerItems = {
    CommandItem{u"mnuSaveAnswer", u"Can't save the answer.", Class::SaveAnswer},
};

} // namespace portico
