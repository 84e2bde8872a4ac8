// The window. Only wires: the work is done in src/.

#include "application/CommandFiles.h"
#include "application/HostEnvironment.h"
#include "application/LineFile.h"
#include "application/Startup.h"
#include "application/WindowProgram.h"
#include "discovery/AttachedInstruments.h"
#include "discovery/InstrumentSearch.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/ChosenDriver.h"
#include "drivers/standard/DriverRegistry.h"
#include "framework/errors/HuntERR.h"
#include "framework/shared/Application.h"
#include "qt/Toolkit.h"
#include "qt/loop/EventLoop.h"
#include "recordings/Recording.h"
#include "system/BackgroundTask.h"
#include "system/Cancellation.h"
#include "system/FileSizeLimit.h"
#include "timing/TimedDriver.h"
#include "ui/dialogs/KnownInstruments.h"

#include <QApplication>

#include <cstdlib>

namespace {

using namespace portico;
using namespace portico::drivers;

/// The whole command line is an instrument's name. One that is not UTF-8 names no instrument, and so it fails to open.
String CommandLine(int argc, char** argv) {
  String line;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) line += u' ';
    line += FromUtf8(argv[i]).Text;
  }
  return line;
}

/// What is neither toolkit nor window. Lets go of it in the reverse order; the channel closes with the factory.
struct Wiring {
  explicit Wiring(const system::Cancellation& cancellation) : m_clock(&cancellation) {
    HuntERR::SetEnvironment(&m_environment);
    auto [driver, notice] = ChooseDriver({.Clock = m_clock, .Cancellation = &cancellation}, recordings::Recordings());
    timing::gTimedDriver = std::make_shared<timing::TimedDriver>(std::move(driver));
    gInstrumentDriver = timing::gTimedDriver;
    Notice = FromUtf8(notice).Text;
    gInstrumentList = std::make_shared<KnownInstruments>(
        [](const std::vector<String>& known) { return discovery::AttachedNames(known); });
    gInstrumentSearch = std::make_shared<discovery::InstrumentSearch>();
    gRegistry = std::make_shared<DriverRegistry>(ToUtf8(ApplicationVersion()));
    gSentLinesFile = OwnSentLinesFile();
    gCommandFiles = OwnCommandFiles();
  }
  Wiring(const Wiring&) = delete;
  Wiring& operator=(const Wiring&) = delete;
  ~Wiring() {
    modAppGlobals::ReleaseObjectFactory();
    modAppGlobals::ReleaseMainForm();
    gCommandFiles = nullptr;
    gSentLinesFile = nullptr;
    gRegistry = nullptr;
    gInstrumentSearch = nullptr;
    gInstrumentList = nullptr;
    gInstrumentDriver = nullptr;
    timing::gTimedDriver = nullptr;
    HuntERR::SetEnvironment(nullptr);
  }

  /// What the user has to be told at the start.
  String Notice;

private:
  HostEnvironment m_environment;
  SteadyClock m_clock;
};

int Run(int argc, char** argv) {
  const String commandLine = CommandLine(argc, argv);
  int ownArguments = 1; // the rest is not for the toolkit
  QApplication application(ownArguments, argv);
  system::Cancellation cancellation;
  const qt::Toolkit toolkit(qt::FindHelpFolder(), cancellation);
  const Wiring wiring(cancellation);
  qt::EventLoop& loop = toolkit.Loop();
  return RunWindow({[&loop] { loop.Run(); }, [&loop] { loop.FinishQuit(); }, loop.Quitting()}, commandLine,
                   wiring.Notice);
}

} // namespace

int main(int argc, char** argv) {
  system::SurviveFileSizeLimit();
  const int status = Run(argc, argv);
  // Whoever is held up by the message bus holds a lock that the toolkit's library waits for at the end.
  if (system::BackgroundTask::AnyGoesOn()) std::_Exit(status);
  return status;
}
