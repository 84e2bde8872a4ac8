#pragma once

#include "platform/IForm.h"

#include <QWidget>

namespace portico::qt {

/// For a window that is shown, too. A number that is no state raises 380.
void SetWindowState(QWidget& window, WindowState state);

/// Gives the window a pointer that all that it holds shares; with 0 everything has its own again.
void SetPointer(QWidget& window, std::int32_t shape);

/// A dialog that nobody has placed goes to the middle of its owner, or of the screen for none; a window whose place is
/// on no screen any more comes back to one.
void PrepareToShow(QWidget& window, bool isPlaced, const QWidget* owner);

} // namespace portico::qt
