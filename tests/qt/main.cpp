// Runs the tests without a screen.

#include "support/RunTests.h"

#include <QApplication>
#include <QStandardPaths>

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>

namespace {

/// What a platform without a screen cannot do is no news.
void Note(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (message.startsWith("This plugin does not support") || message == "Unimplemented code.") return;
  fprintf(stderr, "%s\n", qPrintable(message));
  if (type == QtFatalMsg) std::abort();
}

} // namespace

int main(int argc, char** argv) {
  qInstallMessageHandler(Note);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  testing::InitGoogleMock(&argc, argv);
  const QApplication application(argc, argv);
  return portico::test::RunTests();
}
