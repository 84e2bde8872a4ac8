#pragma once

#include "framework/text/text.h"

#include <cstdint>

namespace portico::numbers {

/// As IEEE 488.2 has it, and the line feed, too.
template <class Unit>
constexpr bool IsWhiteSpace(Unit unit) {
  return unit >= 0 && unit <= ' ';
}

inline String Counted(std::uint64_t number) { return ToText(static_cast<std::int64_t>(number)); }

} // namespace portico::numbers
