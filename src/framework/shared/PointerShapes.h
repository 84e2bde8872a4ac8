#pragma once

#include <cstdint>

namespace portico {

/// The mouse pointer's shapes by their number. With 0 a place has the pointer that it has by itself.
inline constexpr std::int32_t OwnPointer = 0;
inline constexpr std::int32_t ArrowPointer = 1;
inline constexpr std::int32_t CrossPointer = 2;
inline constexpr std::int32_t IBeamPointer = 3;
inline constexpr std::int32_t IconPointer = 4;
inline constexpr std::int32_t SizePointer = 5;
inline constexpr std::int32_t SizeRisingPointer = 6; ///< from the lower left to the upper right
inline constexpr std::int32_t SizeVerticalPointer = 7;
inline constexpr std::int32_t SizeFallingPointer = 8;
inline constexpr std::int32_t SizeHorizontalPointer = 9;
inline constexpr std::int32_t UpArrowPointer = 10;
inline constexpr std::int32_t HourglassPointer = 11;
inline constexpr std::int32_t NoDropPointer = 12;
inline constexpr std::int32_t BusyArrowPointer = 13;
inline constexpr std::int32_t HelpPointer = 14;
inline constexpr std::int32_t SizeAllPointer = 15;

} // namespace portico
