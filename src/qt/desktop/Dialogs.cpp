#include "qt/desktop/Dialogs.h"

#include "qt/forms/WindowPlace.h"
#include "qt/loop/EventLoop.h"

#include <QApplication>
#include <QWindow>

namespace portico::qt {

void SetOwner(QWidget& window) {
  const QWidget* owner = QApplication::activeWindow();
  window.winId(); // makes the window that can have an owner
  if (owner != nullptr && owner != &window) window.windowHandle()->setTransientParent(owner->windowHandle());
}

int Exec(QDialog& dialog, EventLoop& loop) {
  int result = QDialog::Rejected;
  {
    const ModalTurn turn(loop, [&dialog] { dialog.reject(); });
    dialog.ensurePolished();
    PrepareToShow(dialog, false, QApplication::activeWindow());
    SetOwner(dialog);
    result = dialog.exec();
  }
  loop.ThrowIfQuitting();
  return result;
}

} // namespace portico::qt
