#pragma once

#include "framework/text/text.h"

namespace portico {

/// Stand, in white on white, in front of responses and automatic instructions, so that a conversation that is copied
/// and run again does not send the instrument its own answers.
inline constexpr char16_t ResponseMarker = u'\u00AE';
inline constexpr char16_t AutomaticMarker = u'\u00A9';

inline constexpr StringView RemarkWord = u"REM ";

inline bool BeginsWith(StringView line, char16_t first) { return !line.empty() && line.front() == first; }

} // namespace portico
