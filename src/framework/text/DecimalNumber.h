#pragma once

#include <optional>
#include <string_view>

namespace portico {

/// As ReadNumber, of a text in ASCII without blanks around it: sign, digits, fraction, exponent. None for a number that
/// no double holds, too.
std::optional<double> ReadDecimal(std::string_view Text);

} // namespace portico
