#include "qt/desktop/Clipboard.h"

#include "qt/values/QtText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace portico::qt {

Clipboard::Clipboard() {
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &m_context, [this] { Fetch(); });
  Fetch();
}

void Clipboard::Fetch() { m_text = FromQt(QGuiApplication::clipboard()->text()); }

} // namespace portico::qt
