#pragma once

#include "framework/text/text.h"

#include <cstddef>
#include <optional>

namespace portico::logtool {

/// Where two answers begin to differ, in units of the first; none if they are the same. Without a tolerance they are if
/// all letters are. With one, decimal numbers that stand in both at the same place may differ by that part of the
/// larger; gaps are the same as gaps, overloads as overloads of the same side.
std::optional<std::size_t> FindDifference(StringView a, StringView b, std::optional<double> tolerance);

} // namespace portico::logtool
