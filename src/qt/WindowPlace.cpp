#include "qt/WindowPlace.h"

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"
#include "qt/Look.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>
#include <QVariant>

#include <algorithm>

namespace portico::qt {
namespace {

/// Where a widget keeps the pointer that it had before the window got one.
constexpr const char* OwnPointer = "ownPointer";

QPoint Middle(const QRect& outer, const QSize& inner) {
  return outer.topLeft() + QPoint((outer.width() - inner.width()) / 2, (outer.height() - inner.height()) / 2);
}

} // namespace

void SetWindowState(QWidget& window, WindowState state) {
  switch (state) {
  case WindowState::Normal:
    window.setWindowState(window.windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
    return;
  case WindowState::Minimized:
    window.setWindowState((window.windowState() & ~Qt::WindowMaximized) | Qt::WindowMinimized);
    return;
  case WindowState::Maximized:
    window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowMaximized);
    return;
  }
  HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
}

void SetPointer(QWidget& window, std::int32_t shape) {
  if (shape == 0) {
    window.unsetCursor();
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      const QVariant own = widget->property(OwnPointer);
      if (!own.isValid()) continue;
      widget->setCursor(own.value<QCursor>());
      widget->setProperty(OwnPointer, {});
    }
    return;
  }
  const QCursor pointer = PointerShape(shape);
  window.setCursor(pointer);
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->testAttribute(Qt::WA_SetCursor)) continue;
    if (!widget->property(OwnPointer).isValid()) widget->setProperty(OwnPointer, widget->cursor());
    widget->setCursor(pointer);
  }
}

void PrepareToShow(QWidget& window, bool isPlaced, const QWidget* owner) {
  const QScreen* screen = window.screen();
  if (qobject_cast<QDialog*>(&window) != nullptr && !isPlaced) {
    window.adjustSize();
    const QRect around = owner != nullptr ? owner->geometry() : screen->availableGeometry();
    const QPoint middle = Middle(around, window.size());
    const QRect all = screen->availableGeometry(); // an owner at its edge does not take the dialog along
    window.move(std::max(std::min(middle.x(), all.right() - window.width()), all.left()),
                std::max(std::min(middle.y(), all.bottom() - window.height()), all.top()));
    return;
  }
  const QRect place(window.pos(), window.size());
  for (const QScreen* any : QGuiApplication::screens()) {
    if (any->availableGeometry().intersects(place)) return;
  }
  window.move(Middle(screen->availableGeometry(), window.size()));
}

} // namespace portico::qt
