#pragma once

#include "richtext/RtfState.h"

namespace portico::richtext {

/// What a control word does; null for one that is unknown. The words that are part of the notation itself, `\u` and
/// `\bin`, are not among them.
using RtfAction = void (*)(RtfDocument& document, RtfNumber number);
RtfAction FindRtfWord(StringView word);

} // namespace portico::richtext
