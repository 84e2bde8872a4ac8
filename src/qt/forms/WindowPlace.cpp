#include "qt/forms/WindowPlace.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "qt/values/Pointers.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QVariant>

#include <algorithm>

namespace portico::qt {
namespace {

/// Where a widget keeps the pointer that it had before the window got one.
constexpr const char* KeptPointer = "ownPointer";

qint64 AreaOf(const QRect& rectangle) { return qint64{rectangle.width()} * rectangle.height(); }

/// Neither is where it was put.
bool IsElsewhere(const QWidget& window) { return window.isMinimized() || window.isMaximized(); }

/// Keeps a window on the screen once more when it is painted, since only then its frame is known; one that comes up
/// maximized when it is painted at its own place.
class FrameWatch final : public QObject {
public:
  explicit FrameWatch(QWidget& window) : QObject(&window), m_window(window) { window.installEventFilter(this); }

protected:
  bool eventFilter(QObject* /*window*/, QEvent* event) override {
    if (event->type() != QEvent::Paint || IsElsewhere(m_window)) return false;
    m_window.removeEventFilter(this);
    deleteLater();
    KeepOnScreen(m_window);
    return false;
  }

private:
  QWidget& m_window;
};

QPoint Middle(const QRect& outer, const QSize& inner) {
  return outer.topLeft() + QPoint((outer.width() - inner.width()) / 2, (outer.height() - inner.height()) / 2);
}

} // namespace

void SetWindowState(QWidget& window, WindowState state) {
  // What the toolkit keeps for when it is normal again is the place that it has now.
  if (state != WindowState::Normal && !window.isVisible()) KeepOnScreen(window);
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
  if (shape == OwnPointer) {
    window.unsetCursor();
    for (QWidget* widget : window.findChildren<QWidget*>()) {
      const QVariant own = widget->property(KeptPointer);
      if (!own.isValid()) continue;
      widget->setCursor(own.value<QCursor>());
      widget->setProperty(KeptPointer, {});
    }
    return;
  }
  const QCursor pointer = PointerShape(shape);
  window.setCursor(pointer);
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->testAttribute(Qt::WA_SetCursor)) continue;
    if (!widget->property(KeptPointer).isValid()) widget->setProperty(KeptPointer, widget->cursor());
    widget->setCursor(pointer);
  }
}

void PrepareToShow(QWidget& window, bool isPlaced, const QWidget* owner) {
  if (qobject_cast<QDialog*>(&window) != nullptr && !isPlaced) {
    window.adjustSize();
    window.move(Middle(owner != nullptr ? owner->geometry() : window.screen()->availableGeometry(), window.size()));
  }
  KeepOnScreen(window);
  new FrameWatch(window);
}

void KeepOnScreen(QWidget& window) {
  if (IsElsewhere(window)) return;
  std::vector<QRect> areas{window.screen()->availableGeometry()};
  for (const QScreen* screen : QGuiApplication::screens()) areas.push_back(screen->availableGeometry());
  const QRect frame = window.frameGeometry();
  const QRect place = PlaceWithin(frame, areas);
  if (place.size() != frame.size()) window.resize(window.size() + place.size() - frame.size());
  if (place.topLeft() != frame.topLeft()) window.move(place.topLeft());
}

QRect PlaceWithin(const QRect& place, const std::vector<QRect>& areas) {
  QRegion all;
  for (const QRect& area : areas) all += area;
  if (QRegion(place).subtracted(all).isEmpty()) return place;
  const auto shared = [&place](const QRect& area) { return AreaOf(area.intersected(place)); };
  const QRect& area = *std::ranges::max_element(areas, {}, shared);
  QRect fitted(place.topLeft(), place.size().boundedTo(area.size()));
  if (shared(area) == 0) fitted.moveTopLeft(Middle(areas.front(), fitted.size()));
  fitted.moveLeft(std::clamp(fitted.left(), area.left(), area.right() + 1 - fitted.width()));
  fitted.moveTop(std::clamp(fitted.top(), area.top(), area.bottom() + 1 - fitted.height()));
  return fitted;
}

} // namespace portico::qt
