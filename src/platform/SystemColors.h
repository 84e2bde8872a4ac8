#pragma once

#include <cstdint>

namespace portico {

/// A colour is a number, 0x00BBGGRR, or one of the system's.
inline constexpr std::int32_t SystemWindowText = static_cast<std::int32_t>(0x80000008);
inline constexpr std::int32_t SystemButtonFace = static_cast<std::int32_t>(0x8000000F);

} // namespace portico
