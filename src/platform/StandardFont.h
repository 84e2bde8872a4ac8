#pragma once

#include "framework/text/text.h"

namespace portico {

/// The font of the program's windows, and of a text that nobody has formatted.
inline constexpr StringView StandardFontName = u"Sans";
inline constexpr double StandardFontSize = 10; ///< points

} // namespace portico
