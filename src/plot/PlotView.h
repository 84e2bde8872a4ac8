#pragma once

#include "numbers/Range.h"

#include <optional>
#include <vector>

namespace portico::plot {

struct Curve;

/// Which part of the curves is seen: all of it, and what comes, until the user zooms or pans. What is between the
/// curves' smallest and largest seen value follows the values until the user changes that, too.
class PlotView {
public:
  /// Curves have changed, or others are seen.
  void Follow(const std::vector<Curve>& curves);

  /// What the axes show; both are wide. Without a value 0 to 1.
  const numbers::Range& X() const { return m_shownX; }
  const numbers::Range& Y() const { return m_shownY; }
  bool ShowsAll() const { return !m_x && !m_y; }
  /// The vertical axis follows the values.
  bool FollowsY() const { return !m_y; }

  // What the user does. `at` is what stays where it is, as a share of what is seen, from the left or from below.
  /// By a factor above 1 less is seen. No effect once a double could not tell the places apart, or nothing would be
  /// seen of the curves.
  void ZoomX(double factor, double at);
  void ZoomY(double factor, double at);
  /// By shares of what is seen, to the right and upwards.
  void Pan(double right, double up);
  void ShowAll();

private:
  void FitY(const std::vector<Curve>& curves);

  numbers::Range m_wholeX{0, 1};
  numbers::Range m_wholeY{0, 1};
  numbers::Range m_shownX{0, 1};
  numbers::Range m_shownY{0, 1};
  std::optional<numbers::Range> m_x; // if the user has chosen them
  std::optional<numbers::Range> m_y;
};

} // namespace portico::plot
