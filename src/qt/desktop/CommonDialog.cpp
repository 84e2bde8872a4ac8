#include "qt/desktop/CommonDialog.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IDesktop.h"
#include "qt/desktop/Dialogs.h"
#include "qt/values/QtText.h"

#include <QFileDialog>
#include <QGroupBox>
#include <QPageSetupDialog>
#include <QPrintDialog>

#include <algorithm>
#include <vector>

namespace portico::qt {
namespace {

/// To the toolkit, a pattern with a dot would leave out names without one.
QString AnyName(QString text) { return text.replace(QStringLiteral("*.*"), QStringLiteral("*")); }

/// Takes away what chooses pages. The toolkit shows and enables some of it whatever its options say, so it goes to
/// where nothing is seen.
void OfferNoPages(QPrintDialog& dialog) {
  auto* unseen = new QWidget(&dialog);
  unseen->hide();
  const auto* range = dialog.findChild<QGroupBox*>(QStringLiteral("gbPrintRange"));
  if (range == nullptr) return;
  for (QWidget* widget : range->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const QString name = widget->objectName();
    if (name != QStringLiteral("printAll") && name != QStringLiteral("printSelection")) widget->setParent(unseen);
  }
}

} // namespace

QStringList NameFilters(StringView filter) {
  QStringList filters;
  const std::vector<StringView> parts = Split(filter, u"|");
  for (std::size_t i = 0; i < parts.size(); i += 2) {
    QString name = ToQt(parts[i]);
    if (name.isEmpty()) continue;
    const QString pattern = i + 1 < parts.size() ? ToQt(parts[i + 1]).replace(';', ' ') : QString();
    // The toolkit takes the patterns from the brackets at the end of the name.
    if (!pattern.isEmpty() && !name.endsWith('(' + pattern + ')')) name += " (" + pattern + ')';
    filters.append(AnyName(name));
  }
  return filters;
}

void CommonDialog::ShowOpen(FileDialogSettings& settings) {
  QFileDialog dialog;
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  Show(settings, dialog);
}

void CommonDialog::ShowSave(FileDialogSettings& settings) {
  QFileDialog dialog;
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, (settings.Flags & AskBeforeOverwriting) == 0);
  Show(settings, dialog);
}

void CommonDialog::Show(FileDialogSettings& settings, QFileDialog& dialog) {
  dialog.setObjectName(QStringLiteral("fileDialog"));
  dialog.setFileMode(QFileDialog::AnyFile);
  if (!settings.DialogTitle.empty()) dialog.setWindowTitle(ToQt(settings.DialogTitle));
  if (!m_folder.isEmpty()) dialog.setDirectory(m_folder);
  if (const QStringList filters = NameFilters(settings.Filter); !filters.isEmpty()) {
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters[std::clamp<qsizetype>(settings.FilterIndex, 1, filters.size()) - 1]);
  }
  dialog.setDefaultSuffix(ToQt(settings.DefaultExt));
  if (!settings.FileName.empty()) dialog.selectFile(ToQt(settings.FileName));
  if (Exec(dialog, m_loop) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    if (settings.CancelError) HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
    return;
  }
  settings.FileName = FromQt(dialog.selectedFiles().constFirst());
  settings.FilterIndex = static_cast<std::int32_t>(dialog.nameFilters().indexOf(dialog.selectedNameFilter())) + 1;
  m_folder = dialog.directory().absolutePath();
}

Ref<IDeviceContext> CommonDialog::ShowPrinter(const PrinterDialogSettings& settings) {
  if ((settings.Flags & PrintSetupForm) != 0) {
    SetUpPage(settings);
    return {};
  }
  QPrinter& printer = m_printer->Device();
  const bool preset = (settings.Flags & PrintSelectionPreset) != 0;
  printer.setPrintRange(preset ? QPrinter::Selection : QPrinter::AllPages);
  QPrintDialog dialog(&printer);
  dialog.setObjectName(QStringLiteral("printDialog"));
  dialog.setWindowTitle(ToQt(settings.DialogTitle));
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                    QAbstractPrintDialog::PrintCollateCopies);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, (settings.Flags & PrintNoSelection) == 0);
  OfferNoPages(dialog);
  dialog.setPrintRange(preset ? QAbstractPrintDialog::Selection : QAbstractPrintDialog::AllPages);
  if (Exec(dialog, m_loop) != QDialog::Accepted) {
    if (settings.CancelError) HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
    return {};
  }
  if ((settings.Flags & PrintReturnsContext) == 0) return {};
  return New<PrinterContext>(m_printer, printer.printRange() == QPrinter::Selection);
}

void CommonDialog::SetUpPage(const PrinterDialogSettings& settings) {
  QPageSetupDialog dialog(&m_printer->Device());
  dialog.setObjectName(QStringLiteral("pageSetupDialog"));
  dialog.setWindowTitle(ToQt(settings.DialogTitle));
  if (Exec(dialog, m_loop) != QDialog::Accepted && settings.CancelError) {
    HuntERR::RaiseStandard(ErrorNumber::DialogCancelled);
  }
}

void CommonDialog::ShowHelp(const HelpSettings& settings) {
  if (gHelpViewer) gHelpViewer->WinHelp(settings.HelpFile, settings.HelpCommand, settings.HelpKey);
}

} // namespace portico::qt
