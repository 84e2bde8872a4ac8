// The window, mapped on a display: runs of queries on the simulated instrument against portico-run, start-up against a
// plain window, a long log in the viewer, and what the program costs while nothing happens. Ratios within one run;
// medians.

#include "benchmarks/Part.h"
#include "benchmarks/WindowBench.h"
#include "document/entities/CDataEntity.h"
#include "document/entities/IDataStore.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "ui/commands/MergeCommands.h"
#include "ui/viewer/frmViewLog.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTest>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <vector>

#include <unistd.h>

namespace {

using namespace portico;
using namespace portico::drivers;
using Clock = BenchClock;

constexpr int Queries = Part(10'000);
constexpr int Rounds = Part(5);
constexpr int LoggedEntities = Part(1'000'000);
constexpr char Name[] = "SIM::dmm::INSTR";

long ResidentKilobytes() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/// Answered at once, where a measurement takes its time.
String Lines(int count) { return Repeated(u"*IDN?", count); }

double RunInTerminal(const std::string& file, bool on) {
  std::string command = std::string(PORTICO_RUN) + " " + Name + " " + file + " --quiet";
  for (const char* option : {"SCPIProtocolOPCPacing", "SCPIProtocolAutoErrorChecking"}) {
    command += std::string(" --option ") + option + (on ? "=On" : "=Off");
  }
  const auto start = Clock::now();
  if (std::system(command.c_str()) != 0) std::abort();
  return SecondsSince(start);
}

void CompareRuns(const WindowBench& bench, const std::string& file) {
  const String lines = Lines(Queries);
  for (const bool on : {false, true}) {
    WindowBench::SetOptions(on);
    std::vector<double> inWindow;
    std::vector<double> inTerminal;
    for (int round = 0; round < Rounds; ++round) {
      inWindow.push_back(bench.Run(lines));
      inTerminal.push_back(RunInTerminal(file, on));
    }
    std::printf("%d queries, options %s: window %.1f us, portico-run %.1f us a query: %.1f times\n", Queries,
                on ? "on" : "off", Median(inWindow) / Queries * 1e6, Median(inTerminal) / Queries * 1e6,
                Median(inWindow) / Median(inTerminal));
  }
}

/// Until the history shows all of a conversation that has passed by faster than it could be shown; the window answers
/// meanwhile.
void MeasureCatchingUp(const WindowBench& bench) {
  const int lines = bench.LinesAwaited();
  const auto start = Clock::now();
  const double used = ProcessorSeconds();
  while (bench.LinesAwaited() > 0) bench.Loop().WaitForEvent();
  std::printf("history catches up with %d lines: %.1f s, %.1f us of the processor a line\n", lines, SecondsSince(start),
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
  return (ProcessorSeconds() - used) / SecondsSince(start);
}

void MeasureIdle(const WindowBench& bench) {
  std::printf("idle: %.2f %% of a core\n", Idle(bench.Loop(), Part(5.0)) * 100);
  bench.Click(u"mnuPopupCMDStep");
  bench.Loop().DoEvents();
  std::printf("idle after a run from the popup menu: %.2f %% of a core\n", Idle(bench.Loop(), Part(5.0)) * 100);
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
              (ProcessorSeconds() - used) / SecondsSince(start) * 100, SecondsSince(start));
  gConfiguration->ItemValue(u"SCPIProtocolIntervalPacing", u"Off");
  gConfiguration->ItemValue(u"ProtocolName", u"SCPI");
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
    longest = std::max(longest, SecondsSince(last));
    last = Clock::now();
  });
  pulse.start(0);
  while (form->Caption() != u"Log Viewer - " + name) loop.WaitForEvent();
  longest = std::max(longest, SecondsSince(last));
  std::printf("a log of %d entities in the viewer: %.2f s to read and check it, %.3f s from there to the first screen, "
              "%.2f s to the last line, at most %.0f ms without a turn\n",
              LoggedEntities, std::chrono::duration<double>(checked - start).count(),
              std::chrono::duration<double>(first - checked).count(), SecondsSince(first), longest * 1e3);
}

/// Bytes an entity, at a fifth of the way and at the end.
void Soak(const WindowBench& bench, int lines) {
  WindowBench::SetOptions(false);
  // As the command does it behind its dialog.
  const auto store = Create<IObject>(u"DataStore", modGlobals::VarArray(FromUtf8(bench.File("soak.log")).Text, false));
  Cast<IDataStore>(store)->OpenSession();
  bench.Window().Logger(Create<ISubscriber>(u"ReportLogger", modGlobals::VarArray(store)));
  gConfiguration->ItemValue(u"Logging", u"On");
  const long before = ResidentKilobytes();
  const int step = lines / 10;
  for (int done = step; done <= lines; done += step) {
    bench.Run(Lines(step));
    const double entities = 2.0 * done;
    std::printf("%d lines: %.0f bytes an entity\n", done,
                static_cast<double>(ResidentKilobytes() - before) * 1024 / entities);
    std::fflush(stdout);
  }
  bench.Window().Logger(nullptr);
}

} // namespace

int main(int argc, char** argv) {
  const int soak = argc > 1 ? std::atoi(argv[1]) : 0;
  int ownArguments = 1;
  QApplication application(ownArguments, argv);

  std::vector<double> plain;
  for (int round = 0; round < Rounds; ++round) {
    std::optional<PlainWindow> window;
    plain.push_back(ShowSeconds([&] {
      window.emplace().show();
      return &*window;
    }));
  }

  const WindowBench bench;
  std::printf("start: %.1f ms to the shown window, a plain one %.1f ms: %.1f times\n", bench.StartSeconds() * 1e3,
              Median(plain) * 1e3, bench.StartSeconds() / Median(plain));
  if (soak > 0) {
    Soak(bench, soak);
    return 0;
  }
  const std::string file = bench.File("queries.cmd");
  std::ofstream(file) << ToUtf8(Lines(Queries));
  CompareRuns(bench, file);
  MeasureCatchingUp(bench);
  MeasureIdle(bench);
  MeasureIntervalWait(bench.Window());
  MeasureViewer(bench.Window(), bench.Loop(), FromUtf8(bench.File("long.log")).Text);
  return 0;
}
