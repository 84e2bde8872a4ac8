#include "qt/desktop/Keyboard.h"

#include "qt/desktop/Screen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

namespace portico::qt {
namespace {

void Press(QWidget& widget, char16_t unit, Qt::KeyboardModifiers modifiers) {
  const int key = QChar(unit).toUpper().unicode();
  const QString text = modifiers == Qt::NoModifier ? QString(QChar(unit)) : QString();
  const QPointer<QWidget> still = &widget;
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QCoreApplication::sendEvent(&widget, &press);
  if (still.isNull()) return;
  QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
  QCoreApplication::sendEvent(&widget, &release);
}

} // namespace

void Keyboard::SendKeys(const String& keys) {
  QMetaObject::invokeMethod(
      &m_context, [this, keys] { Type(keys); }, Qt::QueuedConnection);
}

void Keyboard::Type(const String& keys) const {
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  for (const char16_t unit : keys) {
    if (unit == u'^') {
      modifiers = Qt::ControlModifier;
      continue;
    }
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr && m_screen.FrontWindow() != nullptr) widget = m_screen.FrontWindow()->focusWidget();
    if (widget != nullptr) Press(*widget, unit, modifiers);
    modifiers = Qt::NoModifier;
  }
}

} // namespace portico::qt
