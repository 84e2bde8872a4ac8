// Runs command files, or standard input, on an instrument. Only wires: the work is done in src/.

#include "application/HostEnvironment.h"
#include "application/SavedSettings.h"
#include "application/Startup.h"
#include "configuration/CConfigurationClient.h"
#include "discovery/InstrumentSearch.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/ChosenDriver.h"
#include "framework/errors/HuntERR.h"
#include "memory/EventLoop.h"
#include "memory/RichTextBox.h"
#include "memory/SettingsStore.h"
#include "memory/SystemClock.h"
#include "memory/UnseenBox.h"
#include "recordings/Recording.h"
#include "system/Cancellation.h"
#include "system/FileSizeLimit.h"
#include "terminal/BatchRun.h"
#include "terminal/InstrumentLister.h"
#include "terminal/QueryBench.h"
#include "terminal/TimingTable.h"
#include "terminal/console/Diagnostic.h"
#include "terminal/console/StandardStreams.h"
#include "timing/TimedDriver.h"
#include "ui/dialogs/KnownInstruments.h"

#include <exception>
#include <iostream>

namespace {

using namespace portico;
using namespace portico::drivers;
using namespace portico::terminal;

int Fail(const std::string& text) {
  std::cerr << Diagnostic(text) << std::endl;
  return static_cast<int>(ExitStatus::Usage);
}

/// Files are read and checked whole before anything is sent; standard input is read as it arrives, unless the run is
/// repeated.
std::variant<BatchRun::Sources, FileFault> OpenSources(const RunOptions& options, const Interrupts& interrupts) {
  BatchRun::Sources sources;
  bool anyLine = false;
  for (const std::string& file : options.Files) {
    if (file == "-" && !options.Repeat) {
      sources.push_back(ReadStandardInput(interrupts));
      continue;
    }
    auto lines = file == "-" ? ReadWholeStandardInput(interrupts) : ReadCommandFile(file);
    if (auto* fault = std::get_if<FileFault>(&lines)) return std::move(*fault);
    sources.push_back(std::move(std::get<std::unique_ptr<LineSource>>(lines)));
    anyLine = anyLine || sources.back()->HasLineAtHand();
  }
  if (options.Repeat && !anyLine && !interrupts.Requested()) return FileFault{"--repeat: there is no line to run"};
  return sources;
}

/// Lets go of what the program wired, in the reverse order; the channel closes with the factory.
struct Wiring {
  Wiring() = default;
  Wiring(const Wiring&) = delete;
  Wiring& operator=(const Wiring&) = delete;
  ~Wiring() {
    gConfiguration = nullptr;
    modAppGlobals::ReleaseObjectFactory();
    modAppGlobals::ReleaseMainForm();
    gInstrumentDriver = nullptr;
    gSettingsStore = nullptr;
    gEventLoop = nullptr;
  }
};

int List(const RunOptions& options) {
  memory::SystemClock clock;
  memory::EventLoop loop(clock);
  const Wiring wiring;
  gSettingsStore = std::make_shared<SavedSettings>(); // which have what the window has opened
  KnownInstruments known;
  discovery::InstrumentSearch search;
  if (PrintInstruments(known, search, options.ListMilliseconds, loop, std::cout)) return 0;
  std::cerr << Diagnostic("standard output cannot be written") << std::endl;
  return static_cast<int>(ExitStatus::Internal);
}

int Measure(const RunOptions& options) {
  system::Cancellation cancellation;
  const Interrupts interrupts([&cancellation] { cancellation.Request(); });
  SteadyClock clock(&cancellation);
  const auto [driver, notice] =
      ChooseDriver({clock, std::chrono::milliseconds(options.TimeoutMilliseconds), nullptr, &cancellation},
                   recordings::Recordings());
  if (!notice.empty()) std::cerr << Diagnostic(notice) << std::endl;
  QueryBench bench(
      options, *driver, [&interrupts] { return interrupts.Requested(); }, std::cout, std::cerr);
  return static_cast<int>(bench.Run());
}

int Run(const RunOptions& options) {
  memory::SystemClock clock;
  const auto loop = std::make_shared<memory::EventLoop>(clock);
  system::Cancellation cancellation;
  const Interrupts interrupts(
      [&loop, &cancellation] {
        loop->RequestQuit();
        cancellation.Request();
      },
      [&clock] { clock.Wake(); });

  auto sources = OpenSources(options, interrupts);
  if (const auto* fault = std::get_if<FileFault>(&sources)) return Fail(fault->Text);

  static HostEnvironment environment; // error reports are read to the very end
  SteadyClock driverClock(&cancellation);
  DriverNews news;
  loop->BeforeWait.Connect([&news] { news.AboutToWait(); });
  const Wiring wiring;
  HuntERR::SetEnvironment(&environment);
  gEventLoop = loop;
  gSettingsStore = std::make_shared<memory::SettingsStore>();
  auto [driver, notice] =
      ChooseDriver({driverClock, std::chrono::milliseconds(options.TimeoutMilliseconds), &news, &cancellation},
                   recordings::Recordings());
  std::shared_ptr<timing::TimedDriver> timed;
  if (options.Timing) driver = timed = std::make_shared<timing::TimedDriver>(std::move(driver));
  gInstrumentDriver = std::move(driver);
  if (!notice.empty()) std::cerr << Diagnostic(notice) << std::endl;
  const auto window = New<TerminalWindow>(New<memory::RichTextBox>(), New<memory::UnseenBox>(),
                                          New<memory::RichTextBox>(), [&] { return interrupts.Requested(); });
  gMainForm = window;
  gScratchArea = window;
  modAppGlobals::DetectXMLParser([] {}); // linked into the program: it cannot be missing
  modAppGlobals::CreateObjectFactory();
  gConfiguration = New<CConfigurationClient>();

  BatchRun run(options, window, interrupts, news, std::cout, std::cerr);
  const ExitStatus status = run.Run(std::get<BatchRun::Sources>(sources));
  if (timed != nullptr) PrintTimes(timed->Times().Figures(), std::cerr);
  return static_cast<int>(status);
}

} // namespace

int main(int argc, char** argv) try {
  HoldClosedStandardStreams();
  system::SurviveFileSizeLimit();
  std::ios::sync_with_stdio(false);
  const auto request = ParseRunOptions(argc, argv);
  if (const auto* help = std::get_if<HelpText>(&request)) {
    std::cout << help->Text << std::flush;
    return 0;
  }
  if (const auto* error = std::get_if<UsageError>(&request)) return Fail(error->Text);
  RunOptions options = std::get<RunOptions>(request);
  if (options.List) return List(options);
  options.ShowProgress = IsProgressWelcome();
  options.ToTerminal = IsOutputShown();
  return options.Bench ? Measure(options) : Run(options);
} catch (const std::exception& error) {
  std::cerr << "portico-run: internal error\n" << error.what() << std::endl;
  return static_cast<int>(ExitStatus::Internal);
}
