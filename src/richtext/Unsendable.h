#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <vector>

namespace portico::richtext {

/// A part of a text, in units.
struct TextSpan {
  std::size_t Start = 0;
  std::size_t Length = 0;
  bool operator==(const TextSpan&) const = default;
};

/// The parts, as long as they come, of which the instrument's code page has no character.
std::vector<TextSpan> UnsendableSpans(StringView text);

} // namespace portico::richtext
