#pragma once

#include "framework/text/text.h"

namespace portico {

/// Captions, log headers and the settings store bear it.
inline constexpr char16_t ApplicationTitle[] = u"Tolvane Portico";

/// Major, minor and revision as the build has them.
String ApplicationVersion();

} // namespace portico
