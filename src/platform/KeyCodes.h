#pragma once

#include <cstdint>

namespace portico {

/// The codes of keys. A letter or a digit has that of its character, in upper case; the function keys follow `F1Key`.
inline constexpr std::int32_t BackspaceKey = 8;
inline constexpr std::int32_t TabKey = 9;
inline constexpr std::int32_t ReturnKey = 13;
inline constexpr std::int32_t ShiftKey = 16;
inline constexpr std::int32_t CtrlKey = 17;
inline constexpr std::int32_t AltKey = 18;
inline constexpr std::int32_t PauseKey = 19;
inline constexpr std::int32_t CapsLockKey = 20;
inline constexpr std::int32_t EscapeKey = 27;
inline constexpr std::int32_t SpaceKey = 32;
inline constexpr std::int32_t PageUpKey = 33;
inline constexpr std::int32_t PageDownKey = 34;
inline constexpr std::int32_t EndKey = 35;
inline constexpr std::int32_t HomeKey = 36;
inline constexpr std::int32_t LeftKey = 37;
inline constexpr std::int32_t UpKey = 38;
inline constexpr std::int32_t RightKey = 39;
inline constexpr std::int32_t DownKey = 40;
inline constexpr std::int32_t DeleteKey = 46;
inline constexpr std::int32_t F1Key = 112;
inline constexpr std::int32_t FunctionKeyCount = 16; ///< how many there are

/// What is held down with a key or a mouse button; the states add up.
inline constexpr std::int32_t ShiftState = 1;
inline constexpr std::int32_t CtrlState = 2;
inline constexpr std::int32_t AltState = 4;

} // namespace portico
