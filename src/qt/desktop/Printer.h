#pragma once

#include "platform/IDesktop.h"
#include "qt/text/TextPrinter.h"

#include <QPrinter>

#include <memory>
#include <utility>

namespace portico::qt {

/// The default printer, looked up when it is first used, which takes a while. What the user sets up stays for as long
/// as the program runs.
class Printer final : public IPrinter {
public:
  void Print(const String& text) override;

  QPrinter& Device();

private:
  std::unique_ptr<QPrinter> m_device;
};

/// What the print dialog was answered with.
class PrinterContext final : public IPrinterContext {
public:
  PrinterContext(std::shared_ptr<qt::Printer> printer, bool selectionOnly)
      : m_printer(std::move(printer)), m_selectionOnly(selectionOnly) {}

  StringView ClassName() const override { return u"PrinterContext"; }
  QPrinter& Printer() override { return m_printer->Device(); }
  bool SelectionOnly() const override { return m_selectionOnly; }

private:
  std::shared_ptr<qt::Printer> m_printer;
  bool m_selectionOnly;
};

} // namespace portico::qt
