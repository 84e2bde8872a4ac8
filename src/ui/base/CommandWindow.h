#pragma once

#include "framework/text/text.h"

namespace portico {

/// What the command window says, word for word, while no instrument is open, and what it is given at the opening.
inline constexpr StringView ClosedPlaceholder = u"OPEN AN INSTRUMENT!";
inline constexpr StringView OpenedPlaceholder = u"REM Enter commands here.\r\n";

/// What commands may do with the text of the command window now. Both need `gMainForm` and `gConfiguration`.
namespace CommandWindow {

/// Text may be brought to the caret: no run takes lines, and no placeholder stands there, of which `gMainFormParts`
/// tells.
bool TakesText();
/// Lines may be put in front: an instrument is open, and no run takes lines.
bool TakesLines();
/// The program may ask the instrument in the protocol SCPI: one is open, and no run takes lines.
bool TakesQuestions();

} // namespace CommandWindow
} // namespace portico
