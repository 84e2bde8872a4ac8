#pragma once

#include "platform/ICommonDialog.h"
#include "qt/desktop/Printer.h"

#include <QString>

#include <memory>
#include <utility>

class QFileDialog;

namespace portico::qt {

class EventLoop;

/// The toolkit's own dialogs: those of the desktop take no name of a file that is new. File dialogs begin where the
/// last one ended. Pages cannot be chosen to print.
class CommonDialog final : public ICommonDialog {
public:
  /// The loop must outlive it.
  CommonDialog(EventLoop& loop, std::shared_ptr<Printer> printer) : m_loop(loop), m_printer(std::move(printer)) {}

  StringView ClassName() const override { return u"CommonDialog"; }
  void ShowOpen(FileDialogSettings& settings) override;
  void ShowSave(FileDialogSettings& settings) override;
  Ref<IDeviceContext> ShowPrinter(const PrinterDialogSettings& settings) override;
  /// By way of `gHelpViewer`.
  void ShowHelp(const HelpSettings& settings) override;

private:
  void Show(FileDialogSettings& settings, QFileDialog& dialog);
  void SetUpPage(const PrinterDialogSettings& settings);

  EventLoop& m_loop;
  std::shared_ptr<Printer> m_printer;
  QString m_folder;
};

/// The filters of a file dialog, in the toolkit's writing.
QStringList NameFilters(StringView filter);

} // namespace portico::qt
