#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace portico::numbers {

/// A number of an answer with the unit that stands behind it.
struct Quantity {
  StringView Text; ///< the number as the instrument wrote it; into the answer
  double Value;    ///< as SpecialValues.h has it
  StringView Unit; ///< behind the number, blanks between them left out; empty for none
};

/// The numbers of an answer as ReadNumberList() has them, each of which may have a suffix as IEEE 488.2 writes it:
/// letters, with digits, `.`, `/`, `-` and signs of units among them. None if something else stands there. The answer
/// must outlive what is returned.
std::optional<std::vector<Quantity>> ReadQuantities(StringView answer);

/// How long the decimal number is that begins the text, in units; 0 if none does. An E belongs to it if digits follow.
std::size_t LengthOfNumber(StringView text);

} // namespace portico::numbers
