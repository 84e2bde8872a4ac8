#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/shared/ICommand.h"
#include "framework/text/text.h"

namespace portico {

class CommandOffers;
class AnswerAtCaret;
class ErrorMarks;
class ICommonDialog;
class IForm;
class IIteratableObject;
class IIterator;
class IPrintable;
class LogNotes;
class RepeatedRun;
class PlotSource;

// What the user can do, one command for each; `modAppGlobals::EventHandler` is the road to them. The keys stand apart
// from the classes, since the windows that ask for a command are themselves what commands work on.
namespace Class {

inline constexpr ClassKey<ICommand> OpenInstrument{u"OpenInstrument"};
inline constexpr ClassKey<ICommand> CloseInstrument{u"CloseInstrument"};
inline constexpr ClassKey<ICommand> ReadInstrumentData{u"ReadInstrumentData"};
inline constexpr ClassKey<ICommand> WaitforOPC{u"WaitforOPC"};
inline constexpr ClassKey<ICommand> QueryStatus{u"QueryStatus"};

/// No registrar lists its creator, so that the factory does not find it.
inline constexpr ClassKey<ICommand> Cut{u"Cut"};
inline constexpr ClassKey<ICommand> Copy{u"Copy"};
inline constexpr ClassKey<ICommand> Paste{u"Paste"};
inline constexpr ClassKey<ICommand> Copyto{u"Copyto"};
inline constexpr ClassKey<ICommand> Pastefrom{u"Pastefrom"};
inline constexpr ClassKey<ICommand> ClearHistory{u"ClearHistory"};

/// The dialog, and what is printed.
inline constexpr ClassKey<ICommand, Ref<ICommonDialog>, Ref<IPrintable>> Print{u"Print"};
/// The dialog.
inline constexpr ClassKey<ICommand, Ref<ICommonDialog>> PrintSetup{u"PrintSetup"};
inline constexpr ClassKey<ICommand> ConfigOptions{u"ConfigOptions"};

/// Opens a new log, or closes the one that is open.
inline constexpr ClassKey<ICommand> ToggleLogFile{u"ToggleLogFile"};
inline constexpr ClassKey<ICommand> ToggleLogging{u"ToggleLogging"};
inline constexpr ClassKey<ICommand> ViewLogFile{u"ViewLogFile"};

/// The target, and what yields the entities.
inline constexpr ClassKey<ICommand, Ref<IIteratableObject>, Ref<IIterator>> MergeDataContainer{u"MergeDataContainer"};
/// The target, the log's name, and an iterator to attach to what was read.
inline constexpr ClassKey<ICommand, Ref<IIteratableObject>, StringView, Ref<IIterator>> MergeDataContainerFromFile{
    u"MergeDataContainerFromFile"};

// They work on the text box that had the focus last, and do nothing where there was none.
inline constexpr ClassKey<ICommand> Find{u"Find"};
inline constexpr ClassKey<ICommand> FindNext{u"FindNext"};
inline constexpr ClassKey<ICommand> FindPrevious{u"FindPrevious"};
inline constexpr ClassKey<ICommand> ZoomIn{u"ZoomIn"};
inline constexpr ClassKey<ICommand> ZoomOut{u"ZoomOut"};
inline constexpr ClassKey<ICommand> ActualSize{u"ActualSize"};

// The errors of a window's conversation, and the window.
inline constexpr ClassKey<ICommand, Ref<ErrorMarks>, Ref<IForm>> NextError{u"NextError"};
inline constexpr ClassKey<ICommand, Ref<ErrorMarks>, Ref<IForm>> PreviousError{u"PreviousError"};
/// Lists them in a dialog, and goes to the one that is chosen.
inline constexpr ClassKey<ICommand, Ref<ErrorMarks>, Ref<IForm>> ListErrors{u"ListErrors"};

/// Shows the picture that the answer under the caret is, in front of the window.
inline constexpr ClassKey<ICommand, Ref<AnswerAtCaret>, Ref<IForm>> ShowPicture{u"ShowPicture"};

// Turn on or off what a log viewer shows beside its text.
inline constexpr ClassKey<ICommand, Ref<LogNotes>> SessionMarks{u"SessionMarks"};
inline constexpr ClassKey<ICommand, Ref<LogNotes>> TimeStamps{u"TimeStamps"};
/// Opens the window of what queries took.
inline constexpr ClassKey<ICommand> ShowTimes{u"ShowTimes"};

/// Asks how often, and runs a copy of lines of the command window so often.
inline constexpr ClassKey<ICommand, Ref<RepeatedRun>> Repeat{u"Repeat"};
/// Opens a window that draws the numbers of a window's conversation, in front of that window.
/// Opens a window that draws the numbers of a window's conversation, beside that window.
inline constexpr ClassKey<ICommand, Ref<PlotSource>, Ref<IForm>> ShowPlot{u"ShowPlot"};

/// Turns stopping at errors on or off.
inline constexpr ClassKey<ICommand> StopAtErrors{u"StopAtErrors"};
/// Asks for the driver's time-out.
inline constexpr ClassKey<ICommand> SetTimeout{u"SetTimeout"};
inline constexpr ClassKey<ICommand> ClearDevice{u"ClearDevice"};
inline constexpr ClassKey<ICommand> GoToLocal{u"GoToLocal"};

/// Offers what completes the word at the caret of the command window.
inline constexpr ClassKey<ICommand, Ref<CommandOffers>> Complete{u"Complete"};
inline constexpr ClassKey<ICommand> AskForCommands{u"AskForCommands"};

// What brings lines back that were sent. They do nothing while the command window takes no text from the user.
inline constexpr ClassKey<ICommand> EarlierLine{u"EarlierLine"};
inline constexpr ClassKey<ICommand> LaterLine{u"LaterLine"};
/// Asks for one in a dialog that searches.
inline constexpr ClassKey<ICommand> SearchSentLines{u"SearchSentLines"};
inline constexpr ClassKey<ICommand> PutBackLastRun{u"PutBackLastRun"};
/// Turns keeping what is sent on or off.
inline constexpr ClassKey<ICommand> KeepSentLines{u"KeepSentLines"};
inline constexpr ClassKey<ICommand> ForgetSentLines{u"ForgetSentLines"};

/// Puts the answer under a history's caret into a file that the user names.
inline constexpr ClassKey<ICommand, Ref<AnswerAtCaret>> SaveAnswer{u"SaveAnswer"};
/// Asks for a query and a file, and puts the answer there, of any size. Does nothing without an instrument, or in a
/// run.
inline constexpr ClassKey<ICommand> FetchAnswer{u"FetchAnswer"};

} // namespace Class
} // namespace portico
