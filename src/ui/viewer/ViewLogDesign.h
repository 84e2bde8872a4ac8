#pragma once

#include "platform/FormDesign.h"
#include "ui/base/CommandItems.h"
#include "ui/base/UserCommands.h"

#include <array>
#include <span>

namespace portico {

/// The log viewer's menus, toolbar, status bar and controls.
const FormDesign& ViewLogDesign();

/// The items that turn on and off what stands beside the text. Their commands take the notes of the window.
inline constexpr std::array NoteItems = {
    CommandItem{u"mnuSessionMarks", u"Can't change what stands beside the text.", Class::SessionMarks},
    CommandItem{u"mnuTimeStamps", u"Can't change what stands beside the text.", Class::TimeStamps},
};

/// What a handler of the viewer says when it fails. Its label is the form's name, a dot, and the handler's name.
struct ViewLogHandler {
  StringView Name;
  StringView Sentence;
};
std::span<const ViewLogHandler> ViewLogHandlers();

} // namespace portico
