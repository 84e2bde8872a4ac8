#pragma once

#include "plot/Curves.h"

#include <functional>
#include <string_view>

namespace portico::plot {

/// Curves as comma-separated values in UTF-8, a line for each value: the curve's name, the place, the value, below a
/// heading that tells what places are. Numbers are as exact as they are kept; a gap is empty, an overload the number
/// that stands for it in answers. What is written comes in pieces of some ten thousand bytes.
void WriteCurves(const std::vector<Curve>& curves, StringView placeHeading,
                 const std::function<void(std::string_view)>& write);

} // namespace portico::plot
