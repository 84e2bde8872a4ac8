#pragma once

namespace portico {

/// The line that stands for the end of command text: no line of the user's may begin so.
inline constexpr char16_t EndOfText = 0x1A;

} // namespace portico
