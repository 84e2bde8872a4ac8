#pragma once

#include "numbers/Fault.h"

#include <variant>
#include <vector>

namespace portico::numbers {

/// Values as SpecialValues.h has them.
using Values = std::vector<double>;

/// The numbers of an answer: decimal (integers, fractions, exponents, with and without sign) and `#H`, `#Q`, `#B`, up
/// to 64 bits of these. Commas separate them, and semicolons, which stand between the answers to several queries of one
/// message; white space around a number is passed over. A number beyond the range of a double is an overload, one below
/// it is 0. If anything else stands there, or nothing, the fault tells the first of it.
std::variant<Values, Fault> ReadNumberList(StringView answer);

} // namespace portico::numbers
