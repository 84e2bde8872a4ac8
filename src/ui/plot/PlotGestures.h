#pragma once

#include "platform/Drawing.h"
#include "platform/MouseEvent.h"
#include "plot/PlotPicture.h"
#include "plot/PlotView.h"

namespace portico {

/// What mouse and keys do to what is seen of curves, and to the cursors. Each function tells whether it has changed
/// anything.
class PlotGestures {
public:
  PlotGestures(plot::PlotView& view, plot::Cursors& cursors) : m_view(view), m_cursors(cursors) {}

  /// Where the curves are, in pixels.
  void Area(const DrawnRectangle& newValue) { m_area = newValue; }

  void Press(const MouseEvent& event);
  /// Pans while the left button is held.
  bool Move(const MouseEvent& event);
  /// A click, which is a button that was let go where it was pressed, sets the first cursor, with Shift the second.
  bool Release(const MouseEvent& event);
  /// Zooms at the pointer along the horizontal axis, with Ctrl along the vertical one.
  bool Wheel(const MouseEvent& event, double notches);
  /// Plus and minus zoom, with Ctrl vertically; arrows and pages pan; Home and 0 show all; 1 and 2 set a cursor in the
  /// middle, Ctrl with an arrow moves the cursor that was set last; Delete takes both away.
  bool Key(std::int32_t code, std::int32_t shift, const std::vector<plot::Curve>& curves);

  static constexpr double ZoomStep = 1.25;

private:
  double ShareX(double x) const;
  double ShareY(double y) const;
  double PlaceAt(double share) const;
  bool IsInArea(const DrawnPoint& point) const;
  void SetCursor(std::size_t cursor, double place);
  bool MoveCursor(bool isForward, const std::vector<plot::Curve>& curves);

  plot::PlotView& m_view;
  plot::Cursors& m_cursors;
  DrawnRectangle m_area;
  DrawnPoint m_pressed;
  DrawnPoint m_last;
  bool m_isHeld = false;
  bool m_isDragged = false;
  std::size_t m_setLast = 0;
};

} // namespace portico
