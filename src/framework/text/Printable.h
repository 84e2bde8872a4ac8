#pragma once

#include "framework/text/text.h"

namespace portico {

/// A line as UTF-8, with question marks for the control characters that would spoil a terminal; a tab stays.
std::string Printable(StringView Line);

} // namespace portico
