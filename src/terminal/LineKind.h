#pragma once

#include "framework/text.h"

namespace portico::terminal {

/// What a line of command text is, decided by its first characters behind leading blanks.
enum class LineKind { Blank, Automatic, Instruction, Remark, Response };

/// Stand in front of responses and automatic instructions in the history, so that pasted history is not sent again.
inline constexpr char16_t ResponseMarker = u'\u00AE';
inline constexpr char16_t AutomaticMarker = u'\u00A9';

/// Of a line without its leading blanks. Comparison is exact: "Rem " is text for the instrument.
inline LineKind KindOf(StringView line) {
  if (line.empty()) return LineKind::Blank;
  if (line.front() == ResponseMarker) return LineKind::Response;
  if (line.front() == AutomaticMarker) return LineKind::Automatic;
  if (line.substr(0, 4) == u"REM ") return LineKind::Remark;
  return LineKind::Instruction;
}

} // namespace portico::terminal
