#pragma once

#include <cstdint>

namespace portico {

// What both platforms refuse.

/// A value of a property outside its range raises `BadPropertyValue`.
void CheckValue(std::int64_t value, std::int64_t least, std::int64_t most);

/// A width or a height below 0 raises `BadPropertyValue`.
void CheckSize(double size);

/// A position among `count` things, counted from 1, at which there is none raises `IndexOutOfBounds`.
void CheckPosition(std::int64_t position, std::int64_t count);

} // namespace portico
