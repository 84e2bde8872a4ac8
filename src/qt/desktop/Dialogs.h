#pragma once

#include <QDialog>

namespace portico::qt {

class EventLoop;

/// Gives a window the active one for its owner, so that it stays in front of that. The owner may be closed first.
void SetOwner(QWidget& window);

/// Shows a dialog modally, in the middle of its owner. Throws `Quit` when the program has been told to end, which
/// closes the dialog.
int Exec(QDialog& dialog, EventLoop& loop);

} // namespace portico::qt
