#pragma once

#include "platform/MouseEvent.h"

#include <QMouseEvent>

namespace portico::qt {

/// What the mouse did with `buttons`, at a place within a control in pixels.
MouseEvent ToMouseEvent(const QMouseEvent& event, Qt::MouseButtons buttons, const QPointF& place);

} // namespace portico::qt
