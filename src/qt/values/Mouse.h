#pragma once

#include "framework/objects/Event.h"
#include "platform/MouseEvent.h"

#include <QMouseEvent>

namespace portico::qt {

/// What a control tells of the mouse's buttons and moves.
struct MouseEvents {
  Event<const MouseEvent&> Down;
  Event<const MouseEvent&> Move;
  Event<const MouseEvent&> Up;
};

/// What the mouse did with `buttons`, at a place within a control in pixels.
MouseEvent ToMouseEvent(const QMouseEvent& event, Qt::MouseButtons buttons, const QPointF& place);

} // namespace portico::qt
