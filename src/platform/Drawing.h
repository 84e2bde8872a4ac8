#pragma once

#include "framework/text/text.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace portico {

/// What a colour is for. The canvas finds colours that are told apart on its ground, light or dark; on paper and in
/// files the ground is white.
enum class Ink : std::uint8_t { Ground, Text, Frame, Grid, Cursor, Curve1, Curve2, Curve3, Curve4, Curve5, Curve6 };
inline constexpr std::size_t CurveInks = 6;

/// How a line is dashed, and what a mark looks like: what tells curves apart where colours do not.
enum class Dash : std::uint8_t { Solid, Dashed, Dotted, DashDotted };
enum class MarkShape : std::uint8_t { Disc, Square, Diamond, Cross, TriangleUp, TriangleDown };

/// All places and lengths are in pixels, from the upper left corner.
struct DrawnPoint {
  double X = 0;
  double Y = 0;

  bool operator==(const DrawnPoint&) const = default;
};

struct DrawnRectangle {
  double Left = 0;
  double Top = 0;
  double Width = 0;
  double Height = 0;

  double Right() const { return Left + Width; }
  double Bottom() const { return Top + Height; }
  bool operator==(const DrawnRectangle&) const = default;
};

struct Fill {
  DrawnRectangle Place;
  Ink Colour = Ink::Ground;
};

/// A line through the points.
struct Polyline {
  std::vector<DrawnPoint> Points;
  Ink Colour = Ink::Curve1;
  double Width = 1;
  Dash Pattern = Dash::Solid;
};

/// A line for each two points.
struct Segments {
  std::vector<DrawnPoint> Ends;
  Ink Colour = Ink::Grid;
  double Width = 1;
};

/// A mark at each place.
struct Marks {
  std::vector<DrawnPoint> Places;
  Ink Colour = Ink::Curve1;
  MarkShape Shape = MarkShape::Disc;
  double Size = 5;
};

enum class TextAlignment : std::uint8_t { Left, Middle, Right };

/// One line of text, its middle at the height of the place.
struct DrawnText {
  DrawnPoint Place;
  String Text;
  Ink Colour = Ink::Text;
  TextAlignment Alignment = TextAlignment::Left;
};

/// From here on nothing is drawn beside the rectangle, up to the next of these.
struct Clip {
  DrawnRectangle Place;
};

/// A picture as plain data: what is drawn, one over the other.
struct Drawing {
  double Width = 0;
  double Height = 0;
  std::vector<std::variant<Fill, Polyline, Segments, Marks, DrawnText, Clip>> Parts;
};

} // namespace portico
