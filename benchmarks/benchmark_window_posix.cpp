// The window, mapped on a display: runs of queries on the simulated instrument against portico-run, start-up against a
// plain window, a plot that follows, a long log in the viewer, and what the program costs while nothing happens. Ratios
// within one run; medians.

#include "application/HostEnvironment.h"
#include "application/Startup.h"
#include "benchmarks/Part.h"
#include "document/entities/CDataEntity.h"
#include "document/entities/IDataStore.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/DriverRegistry.h"
#include "drivers/standard/StandardDriver.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "qt/Toolkit.h"
#include "qt/loop/EventLoop.h"
#include "system/Cancellation.h"
#include "ui/commands/MergeCommands.h"
#include "ui/dialogs/KnownInstruments.h"
#include "ui/main/frmMain.h"
#include "ui/viewer/frmViewLog.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace portico;
using namespace portico::drivers;
using Clock = std::chrono::steady_clock;

constexpr int Queries = Part(10'000);
constexpr int Rounds = Part(5);
constexpr int LoggedEntities = Part(1'000'000);
constexpr char Name[] = "SIM::dmm::INSTR";

double Seconds(Clock::time_point since) { return std::chrono::duration<double>(Clock::now() - since).count(); }

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

long ResidentKilobytes() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/// Answered at once, where a measurement takes its time.
String Lines(int count) {
  String text;
  for (int i = 0; i < count; ++i) text += u"*IDN?\r\n";
  return text;
}

void SetOptions(bool on) {
  const StringView value = on ? u"On" : u"Off";
  for (const StringView option : {u"SCPIProtocolOPCPacing", u"SCPIProtocolAutoErrorChecking"}) {
    gConfiguration->ItemValue(option, value);
  }
  gConfiguration->ItemValue(u"ProtocolName", u"SCPI");
}

double RunInWindow(frmMain& window, const String& lines) {
  window.txtFuture()->Text(lines);
  const auto start = Clock::now();
  window.mnuRun_Click();
  return Seconds(start);
}

/// An open plot, which follows the run.
class OpenPlot {
public:
  explicit OpenPlot(frmMain& window) {
    FindControl<IMenuItem>(window.Form(), u"mnuPlot").Click()();
    m_form = gForms->Forms().back();
    gEventLoop->DoEvents();
  }
  OpenPlot(const OpenPlot&) = delete;
  OpenPlot& operator=(const OpenPlot&) = delete;
  ~OpenPlot() { m_form->Unload(); }

private:
  Ref<IForm> m_form;
};

/// Runs of a query that is answered with a number, with a plot open and without; and how long it takes a plot to open
/// on what they have left.
void ComparePlot(frmMain& window) {
  String lines;
  for (int i = 0; i < Queries; ++i) lines += u"*ESR?\r\n";
  SetOptions(false);
  RunInWindow(window, lines);
  std::vector<double> without;
  std::vector<double> with;
  for (int round = 0; round < Rounds; ++round) {
    without.push_back(RunInWindow(window, lines));
    const OpenPlot plot(window);
    with.push_back(RunInWindow(window, lines));
  }
  std::printf("%d queries, a plot open: %.1f us, without %.1f us a query: %.2f times\n", Queries,
              Median(with) / Queries * 1e6, Median(without) / Queries * 1e6, Median(with) / Median(without));
  const auto start = Clock::now();
  const OpenPlot plot(window);
  std::printf("a plot opens on %d answers: %.0f ms\n", Queries * (2 * Rounds + 1), Seconds(start) * 1e3);
}

double RunInTerminal(const std::string& file, bool on) {
  std::string command = std::string(PORTICO_RUN) + " " + Name + " " + file + " --quiet";
  for (const char* option : {"SCPIProtocolOPCPacing", "SCPIProtocolAutoErrorChecking"}) {
    command += std::string(" --option ") + option + (on ? "=On" : "=Off");
  }
  const auto start = Clock::now();
  if (std::system(command.c_str()) != 0) std::abort();
  return Seconds(start);
}

void CompareRuns(frmMain& window, const std::string& file) {
  const String lines = Lines(Queries);
  for (const bool on : {false, true}) {
    SetOptions(on);
    std::vector<double> inWindow;
    std::vector<double> inTerminal;
    for (int round = 0; round < Rounds; ++round) {
      inWindow.push_back(RunInWindow(window, lines));
      inTerminal.push_back(RunInTerminal(file, on));
    }
    std::printf("%d queries, options %s: window %.1f us, portico-run %.1f us a query: %.1f times\n", Queries,
                on ? "on" : "off", Median(inWindow) / Queries * 1e6, Median(inTerminal) / Queries * 1e6,
                Median(inWindow) / Median(inTerminal));
  }
}

const QTextDocument& HistoryShown() {
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (const auto* box = widget->findChild<QPlainTextEdit*>(QStringLiteral("txtPast"))) return *box->document();
  }
  std::abort();
}

/// Until the history shows all of a conversation that has passed by faster than it could be shown; the window answers
/// meanwhile.
void MeasureCatchingUp(frmMain& window, qt::EventLoop& loop) {
  const QTextDocument& shown = HistoryShown();
  const auto waiting = [&] {
    return window.txtPast()->GetLineFromChar(window.txtPast()->TextLength()) + 1 - shown.blockCount();
  };
  const int lines = waiting();
  const auto start = Clock::now();
  const double used = ProcessorSeconds();
  while (waiting() > 0) loop.WaitForEvent();
  std::printf("history catches up with %d lines: %.1f s, %.1f us of the processor a line\n", lines, Seconds(start),
              (ProcessorSeconds() - used) / std::max(lines, 1) * 1e6);
}

/// The share of a core that the program takes while nothing happens.
double Idle(qt::EventLoop& loop, double seconds) {
  const auto start = Clock::now();
  const double used = ProcessorSeconds();
  const auto timer = loop.MakeTimer();
  timer->Interval(static_cast<std::int32_t>(seconds * 1000));
  timer->Enabled(true);
  bool over = false;
  timer->Timer().Connect([&] { over = true; });
  while (!over) loop.WaitForEvent();
  return (ProcessorSeconds() - used) / Seconds(start);
}

void MeasureIdle(frmMain& window, qt::EventLoop& loop) {
  std::printf("idle: %.2f %% of a core\n", Idle(loop, Part(5.0)) * 100);
  FindControl<IMenuItem>(window.Form(), u"mnuPopupCMDStep").Click()();
  loop.DoEvents();
  std::printf("idle after a run from the popup menu: %.2f %% of a core\n", Idle(loop, Part(5.0)) * 100);
}

void MeasureIntervalWait(frmMain& window) {
  gConfiguration->ItemValue(u"SCPIProtocolIntervalPacing", u"On");
  gConfiguration->ItemValue(u"SCPIProtocolPacingInterval", ToText(std::int64_t{Part(5000)}));
  gConfiguration->ItemValue(u"ProtocolName", u"SCPI");
  window.txtFuture()->Text(Lines(2)); // the second waits for the first one's interval
  const auto start = Clock::now();
  const double used = ProcessorSeconds();
  window.mnuRun_Click();
  std::printf("waiting for the interval: %.2f %% of a core over %.1f s\n",
              (ProcessorSeconds() - used) / Seconds(start) * 100, Seconds(start));
  gConfiguration->ItemValue(u"SCPIProtocolIntervalPacing", u"Off");
  gConfiguration->ItemValue(u"ProtocolName", u"SCPI");
}

double ShowTime(const std::function<QWidget*()>& show) {
  const auto start = Clock::now();
  QWidget* const shown = show();
  if (!QTest::qWaitForWindowExposed(shown)) std::abort();
  return Seconds(start);
}

/// What any program with such a window pays: a menu bar, a tool bar, two text boxes that hold a line.
class PlainWindow final : public QMainWindow {
public:
  PlainWindow() {
    menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Exit"));
    addToolBar(QStringLiteral("Tools"))->addAction(QStringLiteral("Open"));
    auto* boxes = new QSplitter(Qt::Vertical, this);
    for (const char* line : {"> *IDN?", "*IDN?"}) boxes->addWidget(new QPlainTextEdit(QString::fromLatin1(line)));
    setCentralWidget(boxes);
    resize(433, 433);
  }
};

/// A log of so many responses of 64 characters.
void MakeLog(const String& name, int entities) {
  const auto store = Create(Class::DataStore, name, true);
  store->OpenSession();
  const ByteArray data = ToBytes(String(62, u'7') + u"\r\n");
  for (int i = 0; i < entities; ++i) {
    store->AppendDataEntityToStore(modDataDocument::CreateADataEntity(data, u"Response", {}));
  }
}

/// When the log in the viewer has been read and checked: only then its reader asks for the command that shows it.
Clock::time_point checked;

const CreatorRow NotingMerge = {
    .Name = CtorMerge.Name,
    .Specification = CtorMerge.Specification,
    .ParamCount = CtorMerge.ParamCount,
    .Make =
        [](const Params& parameters) {
          checked = Clock::now();
          return CtorMerge.Make(parameters);
        },
};

void MeasureViewer(frmMain& window, qt::EventLoop& loop, const String& name) {
  MakeLog(name, LoggedEntities);
  gObjectFactory->Substitue(MakeCreator(NotingMerge));
  const auto viewer = frmViewLog::Make();
  viewer->FileName(name);
  const auto start = Clock::now();
  viewer->Show(&window.Form());
  const Ref<IForm> form = gForms->Forms().back();
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto shown = std::find_if(windows.begin(), windows.end(), [](const QWidget* each) {
    return each->isVisible() && each->windowTitle().startsWith(QLatin1String("Log Viewer"));
  });
  if (shown == windows.end() || !QTest::qWaitForWindowExposed(*shown)) std::abort();
  const auto first = Clock::now();

  // How long the windows have to wait for a turn while the rest comes.
  QTimer pulse;
  auto last = first;
  double longest = 0;
  QObject::connect(&pulse, &QTimer::timeout, &pulse, [&] {
    longest = std::max(longest, Seconds(last));
    last = Clock::now();
  });
  pulse.start(0);
  while (form->Caption() != u"Log Viewer - " + name) loop.WaitForEvent();
  longest = std::max(longest, Seconds(last));
  std::printf("a log of %d entities in the viewer: %.2f s to read and check it, %.3f s from there to the first screen, "
              "%.2f s to the last line, at most %.0f ms without a turn\n",
              LoggedEntities, std::chrono::duration<double>(checked - start).count(),
              std::chrono::duration<double>(first - checked).count(), Seconds(first), longest * 1e3);
}

/// Bytes an entity, at a fifth of the way and at the end.
void Soak(frmMain& window, const QString& folder, int lines) {
  SetOptions(false);
  // As the command does it behind its dialog.
  const auto store = Create<IObject>(u"DataStore", modGlobals::VarArray(folder.toStdU16String() + u"/soak.log", false));
  Cast<IDataStore>(store)->OpenSession();
  window.Logger(Create<ISubscriber>(u"ReportLogger", modGlobals::VarArray(store)));
  gConfiguration->ItemValue(u"Logging", u"On");
  const long before = ResidentKilobytes();
  const int step = lines / 10;
  for (int done = step; done <= lines; done += step) {
    RunInWindow(window, Lines(step));
    const double entities = 2.0 * done;
    std::printf("%d lines: %.0f bytes an entity\n", done,
                static_cast<double>(ResidentKilobytes() - before) * 1024 / entities);
    std::fflush(stdout);
  }
  window.Logger(nullptr);
}

} // namespace

int main(int argc, char** argv) {
  const int soak = argc > 1 ? std::atoi(argv[1]) : 0;
  int ownArguments = 1;
  QApplication application(ownArguments, argv);
  const QTemporaryDir folder;
  qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());

  std::vector<double> plain;
  for (int round = 0; round < Rounds; ++round) {
    std::optional<PlainWindow> window;
    plain.push_back(ShowTime([&] {
      window.emplace().show();
      return &*window;
    }));
  }

  HostEnvironment environment;
  HuntERR::SetEnvironment(&environment);
  SteadyClock clock;
  system::Cancellation cancellation;
  const qt::Toolkit toolkit(qt::FindHelpFolder(), cancellation);
  gInstrumentDriver = StandardDriver({clock});
  gInstrumentList = std::make_shared<KnownInstruments>();
  gRegistry = std::make_shared<DriverRegistry>("1");

  Ref<frmMain> window;
  const auto makeWindow = [&](const std::function<void()>& createObjectFactory) {
    window = New<frmMain>(createObjectFactory);
    return modAppGlobals::MainForm{window, window, window};
  };
  const double start = ShowTime([&] {
    modAppGlobals::Main({[] {}, makeWindow, {}});
    const QWidgetList shown = QApplication::topLevelWidgets();
    return *std::find_if(shown.begin(), shown.end(), [](const QWidget* widget) { return widget->isVisible(); });
  });
  std::printf("start: %.1f ms to the shown window, a plain one %.1f ms: %.1f times\n", start * 1e3, Median(plain) * 1e3,
              start / Median(plain));

  gConfiguration->ItemValue(u"InstrumentName", u"SIM::dmm::INSTR");
  Create<IConfiguration>(u"Configuration", {})->ItemValue(u"OpenfromTree", u"True");
  window->mnuFileOpenInstrument_Click();

  const std::string file = folder.filePath("queries.cmd").toStdString();
  std::ofstream(file) << ToUtf8(Lines(Queries));
  if (soak > 0) {
    Soak(*window, folder.path(), soak);
  } else {
    CompareRuns(*window, file);
    ComparePlot(*window);
    MeasureCatchingUp(*window, toolkit.Loop());
    MeasureIdle(*window, toolkit.Loop());
    MeasureIntervalWait(*window);
    MeasureViewer(*window, toolkit.Loop(), FromUtf8(folder.filePath("long.log").toStdString()).Text);
  }

  toolkit.Loop().FinishQuit();
  window->Form_Unload();
  window->Form_Terminate();
  window = nullptr;
  modAppGlobals::ReleaseObjectFactory();
  modAppGlobals::ReleaseMainForm();
  gInstrumentDriver = nullptr;
  gInstrumentList = nullptr;
  gRegistry = nullptr;
  HuntERR::SetEnvironment(nullptr);
  return 0;
}
