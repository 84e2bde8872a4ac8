#pragma once

#include "richtext/RichTextLines.h"

#include <optional>

namespace portico::richtext {

/// The first place at or behind `from` at which `text` stands, with line ends as CR LF; unset if it begins in no line
/// up to `lastLine`. Costs what lies between `from` and the match.
std::optional<RichTextLines::Place> FindText(const RichTextLines& lines, RichTextLines::Place from,
                                             std::size_t lastLine, StringView text);

/// Where the first unit at or behind `from` stands that the set lacks. A line end is passed over if the set has both of
/// its units.
RichTextLines::Place PassOver(const RichTextLines& lines, RichTextLines::Place from, StringView set);

} // namespace portico::richtext
