#pragma once

#include "platform/Drawing.h"

#include <vector>

namespace portico::qt {

/// A line of many points, as a screen is painted soonest: a bar for each column of pixels in which it goes far up and
/// down, as a reduced curve does, and lines for the rest. Together they cover what the line covers, and meet where it
/// goes on.
struct SteepStrokes {
  explicit SteepStrokes(const std::vector<DrawnPoint>& points);

  std::vector<DrawnRectangle> Bars; ///< a pixel wide, on whole pixels
  std::vector<std::vector<DrawnPoint>> Lines;

private:
  struct Column;
  static DrawnRectangle BarOf(const Column& column);
};

} // namespace portico::qt
