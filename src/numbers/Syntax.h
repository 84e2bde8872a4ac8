#pragma once

#include "framework/text/text.h"

#include <cstdint>

namespace portico::numbers {

/// As IEEE 488.2 has it, and the line feed, too.
template <class Unit>
constexpr bool IsWhiteSpace(Unit unit) {
  return unit >= 0 && unit <= ' ';
}

/// Without white space around it.
template <class View>
constexpr View Stripped(View text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// As sentences have it.
inline String Counted(std::uint64_t number) { return ToText(static_cast<std::int64_t>(number)); }

} // namespace portico::numbers
