#pragma once

#include "platform/FormDesign.h"

namespace portico {

/// The main window: every menu, button, panel and box that it has. Captions and tool tips are ids of resource strings.
extern const FormDesign MainDesign;

/// What the command window says, word for word, while no instrument is open, and what it is given at the opening.
inline constexpr StringView ClosedPlaceholder = u"OPEN AN INSTRUMENT!";
inline constexpr StringView OpenedPlaceholder = u"REM Enter commands here.\r\n";

} // namespace portico
