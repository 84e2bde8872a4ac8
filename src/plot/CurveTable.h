#pragma once

#include "numbers/Statistics.h"
#include "plot/PlotPicture.h"

namespace portico::plot {

/// What is told of a curve: its values that are seen, and those at the cursors.
struct CurveRow {
  String Name;
  numbers::Statistics Seen;
  /// The value at the last place that is not behind the cursor; a gap if there is none, or no cursor.
  std::array<double, 2> AtCursors{numbers::Gap, numbers::Gap};

  double Difference() const { return AtCursors[1] - AtCursors[0]; }
};

std::vector<CurveRow> TableOf(const std::vector<Curve>& curves, const numbers::Range& seen, const Cursors& cursors);

/// With up to so many significant digits; a gap is empty, an overload "overload".
String NumberText(double number, int digits = 9);

/// What a screen reader says: of each of the first twenty curves its name, how many values are seen, the smallest and
/// the largest.
String Description(const std::vector<CurveRow>& rows, const String& fault);

} // namespace portico::plot
