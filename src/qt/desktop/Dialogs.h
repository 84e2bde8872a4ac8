#pragma once

#include <QDialog>

namespace portico::qt {

class EventLoop;

/// Makes a window one of the window that is active, so that it stays in front of it. The owner may go first.
void SetOwner(QWidget& window);

/// Shows a dialog modally, in the middle of its owner. Throws `Quit` when the program has been told to end, which
/// closes the dialog.
int Exec(QDialog& dialog, EventLoop& loop);

} // namespace portico::qt
