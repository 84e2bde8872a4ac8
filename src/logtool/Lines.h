#pragma once

#include "framework/text/text.h"

#include <vector>

namespace portico::logtool {

/// The lines of a text, without their line ends; a line end behind the last makes no further line.
std::vector<StringView> Lines(StringView text);

/// The text without the line end behind it.
StringView WithoutLineEnd(StringView text);

} // namespace portico::logtool
