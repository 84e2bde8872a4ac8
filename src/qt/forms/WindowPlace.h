#pragma once

#include "platform/IForm.h"

#include <QWidget>

#include <vector>

namespace portico::qt {

/// Works on shown and on hidden windows. A hidden one is moved onto the screen before it is minimized or maximized, so
/// that it is on the screen when it is normal again. A number that is no state raises `BadPropertyValue`.
void SetWindowState(QWidget& window, WindowState state);

/// Gives the window a pointer that all that it holds shares; with 0 everything has its own again.
void SetPointer(QWidget& window, std::int32_t shape);

/// A dialog that nobody has placed goes to the middle of its owner, or of the screen for none. The window is kept on
/// the screen then, and once more when it has got its frame.
void PrepareToShow(QWidget& window, bool isPlaced, const QWidget* owner);

/// Moves a window, frame included, inside what may be taken of its screen, and makes it smaller where it has to be. A
/// window that is minimized or maximized stays as it is.
void KeepOnScreen(QWidget& window);

/// Where a window has to go to be within the areas, of which there is at least one. If all of it is in them it stays
/// where it is; else it goes into the area that holds most of it, or into the middle of the first if none holds any.
QRect PlaceWithin(const QRect& place, const std::vector<QRect>& areas);

} // namespace portico::qt
