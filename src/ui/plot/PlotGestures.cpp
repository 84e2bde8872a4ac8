#include "ui/plot/PlotGestures.h"

#include "platform/ICanvas.h"
#include "platform/KeyCodes.h"

#include <algorithm>
#include <cmath>

namespace portico {
namespace {

constexpr double ClickSlack = 3;   // pixels that a mouse may move in a click
constexpr double ArrowShare = 0.1; // of what is seen
constexpr double PageShare = 0.9;

DrawnPoint PlaceOf(const MouseEvent& event) { return {event.X / FormUnitsPerPixel, event.Y / FormUnitsPerPixel}; }

} // namespace

double PlotGestures::ShareX(double x) const {
  return m_area.Width > 0 ? std::clamp((x - m_area.Left) / m_area.Width, 0.0, 1.0) : 0.5;
}

double PlotGestures::ShareY(double y) const {
  return m_area.Height > 0 ? std::clamp((m_area.Bottom() - y) / m_area.Height, 0.0, 1.0) : 0.5;
}

double PlotGestures::PlaceAt(double share) const {
  const numbers::Range& range = m_view.X();
  return range.From + (range.To - range.From) * share;
}

bool PlotGestures::IsInArea(const DrawnPoint& point) const {
  return point.X >= m_area.Left && point.X <= m_area.Right() && point.Y >= m_area.Top && point.Y <= m_area.Bottom();
}

void PlotGestures::SetCursor(std::size_t cursor, double place) {
  m_cursors.at(cursor) = place;
  m_setLast = cursor;
}

void PlotGestures::Press(const MouseEvent& event) {
  if (event.Button != LeftButton) return;
  m_pressed = m_last = PlaceOf(event);
  m_isHeld = IsInArea(m_pressed);
  m_isDragged = false;
}

bool PlotGestures::Move(const MouseEvent& event) {
  if (!m_isHeld || (event.Button & LeftButton) == 0) return false;
  const DrawnPoint place = PlaceOf(event);
  m_isDragged |= std::abs(place.X - m_pressed.X) > ClickSlack || std::abs(place.Y - m_pressed.Y) > ClickSlack;
  if (!m_isDragged || m_area.Width <= 0 || m_area.Height <= 0) return false;
  // What is between follows the mouse up and down only once the user has zoomed there: or a small slip would end that
  // the axis follows the values.
  m_view.Pan((m_last.X - place.X) / m_area.Width, m_view.FollowsY() ? 0 : (place.Y - m_last.Y) / m_area.Height);
  m_last = place;
  return true;
}

bool PlotGestures::Release(const MouseEvent& event) {
  const bool isClick = m_isHeld && !m_isDragged && event.Button == LeftButton;
  m_isHeld = false;
  if (!isClick) return false;
  SetCursor((event.Shift & ShiftState) != 0 ? 1 : 0, PlaceAt(ShareX(m_pressed.X)));
  return true;
}

bool PlotGestures::Wheel(const MouseEvent& event, double notches) {
  const DrawnPoint place = PlaceOf(event);
  const double factor = std::pow(ZoomStep, notches);
  if ((event.Shift & CtrlState) != 0) {
    m_view.ZoomY(factor, ShareY(place.Y));
  } else {
    m_view.ZoomX(factor, ShareX(place.X));
  }
  return true;
}

bool PlotGestures::Key(std::int32_t code, std::int32_t shift, const std::vector<plot::Curve>& curves) {
  const bool isCtrl = (shift & CtrlState) != 0;
  switch (code) {
  case PlusKey:
  case MinusKey: {
    const double factor = code == PlusKey ? ZoomStep : 1 / ZoomStep;
    isCtrl ? m_view.ZoomY(factor, 0.5) : m_view.ZoomX(factor, 0.5);
    return true;
  }
  case LeftKey:
  case RightKey:
    if (isCtrl) return MoveCursor(code == RightKey, curves);
    m_view.Pan(code == RightKey ? ArrowShare : -ArrowShare, 0);
    return true;
  case UpKey:
  case DownKey:
    m_view.Pan(0, code == UpKey ? ArrowShare : -ArrowShare);
    return true;
  case PageUpKey:
  case PageDownKey:
    m_view.Pan(code == PageDownKey ? PageShare : -PageShare, 0);
    return true;
  case HomeKey:
  case u'0':
    m_view.ShowAll();
    return true;
  case u'1':
  case u'2':
    SetCursor(static_cast<std::size_t>(code - u'1'), PlaceAt(0.5));
    return true;
  case DeleteKey:
    m_cursors = {};
    return true;
  default:
    return false;
  }
}

/// To the next value of the first curve.
bool PlotGestures::MoveCursor(bool isForward, const std::vector<plot::Curve>& curves) {
  auto& cursor = m_cursors.at(m_setLast);
  if (!cursor || curves.empty() || curves.front().Data->Empty()) return false;
  const numbers::Series& data = *curves.front().Data;
  const auto [first, last] = data.Within({*cursor, data.Whole().To});
  if (isForward) {
    std::size_t next = first;
    while (next < last && data.Place(next) <= *cursor) ++next;
    if (next < last) cursor = data.Place(next);
  } else if (first > 0) {
    cursor = data.Place(first - 1);
  }
  return true;
}

} // namespace portico
