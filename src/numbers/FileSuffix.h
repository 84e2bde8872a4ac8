#pragma once

#include <string_view>

namespace portico::numbers {

/// What a file of these bytes should end in, without the dot, as their head tells: that of a picture, also one that is
/// too large to be shown, of a sound, or `bin` for anything else.
std::string_view FileSuffix(std::string_view bytes);

} // namespace portico::numbers
