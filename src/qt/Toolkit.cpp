#include "qt/Toolkit.h"

#include "platform/IProgress.h"
#include "platform/StandardFont.h"
#include "qt/controls/Icons.h"
#include "qt/desktop/Clipboard.h"
#include "qt/desktop/CommonDialog.h"
#include "qt/desktop/DrawingOutput.h"
#include "qt/desktop/HelpViewer.h"
#include "qt/desktop/Keyboard.h"
#include "qt/desktop/MessageBox.h"
#include "qt/desktop/Printer.h"
#include "qt/desktop/Progress.h"
#include "qt/desktop/Screen.h"
#include "qt/desktop/SettingsStore.h"
#include "qt/loop/EventLoop.h"
#include "qt/text/RichTextBox.h"

#include <QApplication>
#include <QDir>

namespace portico::qt {
namespace {

std::shared_ptr<IRichTextControl> MakeRichText(const ControlDesign& design, QWidget& parent) {
  return std::make_shared<RichTextBox>(design, parent, StandardFontName, StandardFontSize);
}

} // namespace

Toolkit::Toolkit(const QString& helpFolder, system::Cancellation& cancellation)
    : m_loop(std::make_shared<EventLoop>()), m_signals(*m_loop, cancellation) {
  QApplication::setDesktopFileName("portico"); // the entry that a desktop shows the windows under
  QApplication::setWindowIcon(Icon("portico"));
  gEventLoop = m_loop;
  gSettingsStore = std::make_shared<SettingsStore>();
  const auto screen = std::make_shared<Screen>(*m_loop, MakeRichText);
  gForms = screen;
  gMessageBox = std::make_shared<MessageBox>(*m_loop);
  gClipboard = std::make_shared<Clipboard>();
  gKeyboard = std::make_shared<Keyboard>(*screen);
  const auto printer = std::make_shared<Printer>();
  gPrinter = printer;
  gCommonDialog = New<CommonDialog>(*m_loop, printer);
  gDrawingOutput = std::make_shared<DrawingOutput>();
  gHelpViewer = std::make_shared<HelpViewer>(helpFolder);
  gProgress = std::make_shared<Progress>(*m_loop);
}

Toolkit::~Toolkit() {
  gProgress = nullptr;
  gHelpViewer = nullptr;
  gDrawingOutput = nullptr;
  gCommonDialog = nullptr;
  gPrinter = nullptr;
  gKeyboard = nullptr;
  gClipboard = nullptr;
  gMessageBox = nullptr;
  gForms = nullptr;
  gSettingsStore = nullptr;
  gEventLoop = nullptr;
}

QString FindHelpFolder() {
  const QDir program(QCoreApplication::applicationDirPath());
  const QString installed = program.filePath(QStringLiteral("../share/portico/help"));
  return QDir(installed).exists() ? installed : program.filePath(QStringLiteral("../../../docs/manual"));
}

} // namespace portico::qt
