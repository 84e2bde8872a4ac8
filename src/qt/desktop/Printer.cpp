#include "qt/desktop/Printer.h"

#include "qt/values/QtText.h"

#include <QTextDocument>

namespace portico::qt {

QPrinter& Printer::Device() {
  if (!m_device) m_device = std::make_unique<QPrinter>(QPrinter::HighResolution);
  return *m_device;
}

void Printer::Print(const String& text) {
  if (text.empty()) return;
  QTextDocument document;
  document.setPlainText(ToQt(text));
  document.print(&Device());
}

} // namespace portico::qt
