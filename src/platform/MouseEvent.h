#pragma once

#include <cstdint>

namespace portico {

/// The buttons of a mouse; where several count they add up.
inline constexpr std::int32_t LeftButton = 1;
inline constexpr std::int32_t RightButton = 2;
inline constexpr std::int32_t MiddleButton = 4;

/// A mouse button or the mouse over a control, at a place within it in form units.
struct MouseEvent {
  std::int32_t Button = 0;
  std::int32_t Shift = 0; ///< as the states of keys have it
  double X = 0;
  double Y = 0;
};

} // namespace portico
