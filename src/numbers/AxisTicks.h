#pragma once

#include "framework/text/text.h"
#include "numbers/Range.h"

#include <functional>
#include <vector>

namespace portico::numbers {

/// A mark on an axis.
struct Tick {
  double Place;
  String Label;
};

/// How an axis is labelled.
struct AxisTicks {
  std::vector<Tick> Ticks; ///< in the order of their places, all within the range
  String Form; ///< "min:s", "h:min" or "h:min:s" where labels are to be read so; else they tell their unit, if any
};

/// The room on the screen that the axis has.
struct AxisRoom {
  double Length;                              ///< in pixels
  std::function<double(StringView)> ExtentOf; ///< of a label along the axis, in pixels
};

/// As many ticks as there is room for, a label's middle at its place and at least the room of "0" between two labels.
/// Steps are 1, 2 or 5 times a power of ten; labels have one prefix for the whole axis, as "1.5 mV", "200 k", or an
/// exponent where there is no prefix. None where the range is not wide, or so narrow that its places are all the same
/// double.
AxisTicks ValueTicks(const Range& range, const AxisRoom& room, StringView unit = {});

/// The same for seconds from some beginning: up to a minute as values, and else in steps that divide a minute, an hour
/// or a day, as "1:05", "-0:30", "2:00:07.5".
AxisTicks TimeTicks(const Range& range, const AxisRoom& room);

} // namespace portico::numbers
