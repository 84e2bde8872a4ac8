#pragma once

#include "platform/IForm.h"

#include <QWidget>

#include <vector>

namespace portico::qt {

/// For a window that is shown, too. A hidden one that gives up its place is kept on the screen first, and so is when it
/// is normal again. A number that is no state raises 380.
void SetWindowState(QWidget& window, WindowState state);

/// Gives the window a pointer that all that it holds shares; with 0 everything has its own again.
void SetPointer(QWidget& window, std::int32_t shape);

/// A dialog that nobody has placed goes to the middle of its owner, or of the screen for none. The window is kept on
/// the screen then, and once more when it has got its frame.
void PrepareToShow(QWidget& window, bool isPlaced, const QWidget* owner);

/// Moves a window, frame included, inside what may be taken of its screen, and makes it smaller where it has to be. One
/// that is minimized or maximized has no place of its own.
void KeepOnScreen(QWidget& window);

/// Where a window of that place comes to be if it has to stay within areas, of which there is at least one: where it
/// is, if all of it is in them; else within the one that has most of it, or in the middle of the first if none has any.
QRect PlaceWithin(const QRect& place, const std::vector<QRect>& areas);

} // namespace portico::qt
