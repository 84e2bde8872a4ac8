#pragma once

#include "framework/text/text.h"

#include <cstdint>

namespace portico::numbers {

// The character classes of IEEE 488.2, for bytes and for UTF-16 units, and what sentences are made of.

template <class Unit>
constexpr bool IsDigit(Unit unit) {
  return unit >= '0' && unit <= '9';
}

/// Control characters too, the line feed among them.
template <class Unit>
constexpr bool IsWhiteSpace(Unit unit) {
  return unit >= 0 && unit <= ' ';
}

inline String Counted(std::uint64_t number) { return ToText(static_cast<std::int64_t>(number)); }

} // namespace portico::numbers
