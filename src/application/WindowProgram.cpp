#include "application/WindowProgram.h"

#include "application/Startup.h"
#include "framework/errors/Quit.h"
#include "framework/shared/Application.h"
#include "platform/IDesktop.h"
#include "ui/main/frmMain.h"

namespace portico {

int RunWindow(const WindowLoop& loop, const String& commandLine, const String& notice) {
  Ref<frmMain> window;
  const auto makeWindow = [&](const std::function<void()>& createObjectFactory) {
    window = New<frmMain>(createObjectFactory);
    return modAppGlobals::MainForm{window, window, window};
  };
  const auto makeDocument = [] {}; // the parser is linked into the program: it cannot be missing
  // By whatever road: a signal and the end of the desktop's session ask nobody else.
  const auto connection = loop.Quitting.Connect([&window] {
    if (!window) return;
    window->StopRequested(true);
    window->Form().Hide();
  });
  try {
    modAppGlobals::Main({makeDocument, makeWindow, commandLine});
    if (window && !notice.empty()) gMessageBox->Show(notice, ApplicationTitle);
    if (window) loop.Run();
  } catch (const Quit&) { // NOLINT(bugprone-empty-catch): it has done what it is for
  }
  loop.FinishQuit();
  if (window) {
    window->Form_Unload();
    window->Form_Terminate();
  }
  loop.Quitting.Disconnect(connection);
  return window ? 0 : 1;
}

} // namespace portico
