// A run in the window with all that can stand beside it, and with nothing: a live plot, the window of times, marks at
// the margin, Stop at Errors, the lines that were sent, a list of offers that is open when the run begins. And how long
// an answer takes into the plot while a run goes on. Ratios within one run; medians.

#include "benchmarks/Part.h"
#include "benchmarks/WindowBench.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/objects/IPublisher.h"
#include "framework/shared/IReport.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace {

using namespace portico;

constexpr int Queries = Part(20'000);
constexpr int Rounds = Part(7);
constexpr StringView Query = u"*ESR?"; // answered at once, with a number

/// Until nothing waits to be shown.
void Settle(const WindowBench& bench) {
  gEventLoop->DoEvents();
  while (bench.LinesAwaited() > 0) bench.Loop().WaitForEvent();
}

/// A window that a menu item opens.
class OpenWindow {
public:
  OpenWindow(const WindowBench& bench, StringView item) {
    bench.Click(item);
    m_form = gForms->Forms().back();
    gEventLoop->DoEvents();
  }
  OpenWindow(const OpenWindow&) = delete;
  OpenWindow& operator=(const OpenWindow&) = delete;
  ~OpenWindow() { m_form->Unload(); }

private:
  Ref<IForm> m_form;
};

void Switch(const WindowBench& bench, StringView item, bool on) {
  if (FindControl<IMenuItem>(bench.Window().Form(), item).Checked() != on) bench.Click(item);
}

/// Seconds, by the clock and of the processor. The second counts what is shown behind the run, too.
struct Taken {
  std::vector<double> Clock;
  std::vector<double> Processor;
};

void RunOnce(const WindowBench& bench, bool offers, Taken& taken) {
  bench.Window().txtFuture()->Text(Repeated(Query, Queries) + u"*");
  bench.Window().txtFuture()->SelStart(bench.Window().txtFuture()->TextLength());
  WindowBench::Activate();
  bench.Window().txtFuture()->SetFocus();
  Settle(bench);
  if (offers) {
    bench.Click(u"mnuComplete");
    if (bench.Window().txtFuture()->Offers().empty()) std::abort();
  }
  const double used = ProcessorSeconds();
  const auto start = BenchClock::now();
  bench.Window().mnuRun_Click();
  taken.Clock.push_back(SecondsSince(start));
  Settle(bench);
  taken.Processor.push_back(ProcessorSeconds() - used);
}

void Print(const char* what, const Taken& with, const Taken& without) {
  const auto line = [](double seconds) { return seconds / Queries * 1e6; };
  std::printf(
      "%-28s %6.2f us, without %6.2f us a line: %.3f times; with what is shown later %6.2f us, without %6.2f us "
      "of the processor: %.3f times\n",
      what, line(Median(with.Clock)), line(Median(without.Clock)), Median(with.Clock) / Median(without.Clock),
      line(Median(with.Processor)), line(Median(without.Processor)),
      Median(with.Processor) / Median(without.Processor));
}

/// A history of its own, in which a line is marked or none.
void BeginAnew(const WindowBench& bench, bool marked) {
  WindowBench::SetOptions(true);
  bench.Click(u"mnuClearHistory");
  bench.Run(marked ? u"NONSENSE\r\n" : u"*CLS\r\n");
  Settle(bench);
}

void CompareEverything(const WindowBench& bench, bool options) {
  Taken with;
  Taken without;
  for (int round = 0; round < Rounds; ++round) {
    BeginAnew(bench, false);
    WindowBench::SetOptions(options);
    Switch(bench, u"mnuKeepSentLines", false);
    Switch(bench, u"mnuStopAtErrors", false);
    RunOnce(bench, false, without);

    BeginAnew(bench, true);
    WindowBench::SetOptions(options);
    Switch(bench, u"mnuKeepSentLines", true);
    Switch(bench, u"mnuStopAtErrors", true);
    const OpenWindow times(bench, u"mnuTiming");
    const OpenWindow plot(bench, u"mnuPlot");
    RunOnce(bench, true, with);
  }
  Print(options ? "everything, options on" : "everything, options off", with, without);
}

void ComparePlot(const WindowBench& bench) {
  WindowBench::SetOptions(false);
  Taken with;
  Taken without;
  for (int round = 0; round < Rounds; ++round) {
    BeginAnew(bench, false);
    WindowBench::SetOptions(false);
    RunOnce(bench, false, without);
    BeginAnew(bench, false);
    WindowBench::SetOptions(false);
    const OpenWindow plot(bench, u"mnuPlot");
    RunOnce(bench, false, with);
  }
  Print("a live plot, options off", with, without);
  Settle(bench);
  const double used = ProcessorSeconds();
  bench.Click(u"mnuPlot");
  std::printf("a plot opens on %d answers: %.0f ms of the processor\n",
              2 * Rounds * Queries, // Clear History leaves them
              (ProcessorSeconds() - used) * 1e3);
  gForms->Forms().back()->Unload();
}

/// When answers came.
class Arrivals final : public ISubscriber {
public:
  StringView ClassName() const override { return u"Arrivals"; }
  void Update(const Ref<IObject>& Subject) override {
    if (Cast<IReport>(Subject)->GetCommand() == u"CReadCmd") Times.push_back(BenchClock::now());
  }

  std::vector<BenchClock::time_point> Times;
};

/// Sees when the plot has been painted, and how many answers then stand in it, which it tells as a screen reader gets
/// it.
class PaintWatch final : public QObject {
public:
  PaintWatch(QWidget& canvas, const std::vector<BenchClock::time_point>& arrivals)
      : m_canvas(canvas), m_arrivals(arrivals) {
    canvas.installEventFilter(this);
  }

  std::size_t Drawn() const { return m_drawn; }
  /// For each painting that brought something new how long the answer that had waited longest has waited.
  const std::vector<double>& Waits() const { return m_waits; }

protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    watched->event(event);
    const QString told = m_canvas.accessibleDescription();
    const auto count = told.mid(told.indexOf(QLatin1String(": ")) + 2).split(QLatin1Char(' ')).front().toULongLong();
    if (count <= m_drawn) return true;
    m_waits.push_back(SecondsSince(m_arrivals.at(m_drawn)));
    m_drawn = count;
    return true;
  }

private:
  QWidget& m_canvas;
  const std::vector<BenchClock::time_point>& m_arrivals;
  std::size_t m_drawn = 0;
  std::vector<double> m_waits;
};

QWidget& Canvas() {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue; // that of a plot before, which is yet to go
    if (auto* canvas = window->findChild<QWidget*>(QStringLiteral("cnvPlot"))) return *canvas;
  }
  std::abort();
}

void MeasureDelay(const WindowBench& bench, StringView query, int count) {
  BeginAnew(bench, false);
  WindowBench::SetOptions(false);
  const auto arrivals = New<Arrivals>();
  Create(Class::CmdSubscriptionAgent)->Subscribe(arrivals);
  bench.Run(Repeated(query, 1)); // so that the plot draws this one
  {
    const OpenWindow plot(bench, u"mnuPlot");
    PaintWatch watch(Canvas(), arrivals->Times);
    bench.Run(Repeated(query, count));
    const std::size_t during = watch.Waits().size();
    while (watch.Drawn() < arrivals->Times.size()) bench.Loop().WaitForEvent();
    std::vector<double> waits = watch.Waits();
    if (waits.size() > 1) waits.erase(waits.begin()); // which stood there before the plot
    std::printf("%d times %s, %zu paintings during the run: an answer is drawn within %.0f ms, in the median painting "
                "%.0f ms\n",
                count, ToUtf8(query).c_str(), during, *std::max_element(waits.begin(), waits.end()) * 1e3,
                Median(waits) * 1e3);
  }
  Create(Class::CmdSubscriptionAgent)->Unsubscribe(arrivals);
}

} // namespace

/// The argument chooses one measurement.
int main(int argc, char** argv) {
  const std::string_view chosen = argc > 1 ? argv[1] : "";
  int ownArguments = 1;
  const QApplication application(ownArguments, argv);
  const WindowBench bench;
  const auto wants = [chosen](std::string_view part) { return chosen.empty() || chosen == part; };
  if (wants("off")) CompareEverything(bench, false);
  if (wants("on")) CompareEverything(bench, true);
  if (wants("plot")) ComparePlot(bench);
  if (wants("delay")) {
    MeasureDelay(bench, u"*STB?", Part(200'000));
    MeasureDelay(bench, u"SIM:DEL 0.005;*OPC?", Part(400));
  }
  return 0;
}
