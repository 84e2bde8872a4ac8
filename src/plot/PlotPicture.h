#pragma once

#include "platform/Drawing.h"
#include "plot/Curves.h"

#include <array>
#include <functional>
#include <optional>

namespace portico::plot {

/// How texts are drawn, in pixels.
struct TextMetrics {
  std::function<double(StringView)> ExtentOf;
  double LineHeight = 0;
};

/// The places of two cursors on the horizontal axis; none where a cursor is not set.
using Cursors = std::array<std::optional<double>, 2>;

/// What a picture shows.
struct Scene {
  const std::vector<Curve>& Curves;
  numbers::Range X;
  numbers::Range Y;
  bool IsTime = true;
  String PlaceTitle; ///< of the horizontal axis
  plot::Cursors Cursors = {};
  String Message = {}; ///< in the middle, where there is nothing to be seen
};

struct Picture {
  Drawing Drawn;
  DrawnRectangle Area; ///< of the curves, within axes and legend
};

/// Axes with their ticks, curves reduced to what a column of pixels shows, broken at gaps, overloads as triangles at
/// the edge, cursors, and a legend that tells curves apart by dashes and marks, too. Takes some milliseconds however
/// many values there are.
Picture Draw(const Scene& scene, double width, double height, const TextMetrics& metrics);

} // namespace portico::plot
