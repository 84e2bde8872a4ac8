#include "qt/values/Mouse.h"

#include "platform/IPlaced.h"
#include "qt/values/Keys.h"

namespace portico::qt {

MouseEvent ToMouseEvent(const QMouseEvent& event, Qt::MouseButtons buttons, const QPointF& place) {
  return {.Button = (buttons.testFlag(Qt::LeftButton) ? LeftButton : 0) +
                    (buttons.testFlag(Qt::RightButton) ? RightButton : 0) +
                    (buttons.testFlag(Qt::MiddleButton) ? MiddleButton : 0),
          .Shift = ShiftState(event.modifiers()),
          .X = place.x() * FormUnitsPerPixel,
          .Y = place.y() * FormUnitsPerPixel};
}

} // namespace portico::qt
