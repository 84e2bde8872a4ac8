#pragma once

#include "framework/text/text.h"

#include <cstdint>

namespace portico {

/// What a line of the command window is.
enum class LineKind : std::int32_t {
  None = 0,
  CmdBlank = 1,
  CmdAutomatic = 2,   ///< begins with `AutomaticMarker`
  CmdInstruction = 3, ///< anything else: goes to the instrument
  CmdRemark = 4,      ///< begins with `RemarkWord`
  CmdResponse = 5,    ///< begins with `ResponseMarker`, or is italic to its line end
  CmdEnd = 6,         ///< no line: the window is empty
};

/// Stand, in white on white, in front of responses and automatic instructions, so that a conversation that is copied
/// and run again does not send the instrument its own answers.
inline constexpr char16_t ResponseMarker = u'\u00AE';
inline constexpr char16_t AutomaticMarker = u'\u00A9';

inline constexpr StringView RemarkWord = u"REM ";

/// The line that stands for the end of the text.
inline constexpr char16_t EndOfText = 0x1A;

inline bool BeginsWith(StringView line, char16_t first) { return !line.empty() && line.front() == first; }

} // namespace portico
