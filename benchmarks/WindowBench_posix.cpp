#include "benchmarks/WindowBench.h"

#include "application/CommandFiles.h"
#include "application/LineFile.h"
#include "application/Startup.h"
#include "drivers/standard/DriverRegistry.h"
#include "drivers/standard/StandardDriver.h"
#include "framework/errors/HuntERR.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "timing/TimedDriver.h"
#include "ui/dialogs/KnownInstruments.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>

#include <algorithm>
#include <cstdlib>

#include <sys/resource.h>

namespace portico {
namespace {

QPlainTextEdit& HistoryShown() {
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    if (auto* box = widget->findChild<QPlainTextEdit*>(QStringLiteral("txtPast"))) return *box;
  }
  std::abort();
}

} // namespace

double SecondsSince(BenchClock::time_point start) {
  return std::chrono::duration<double>(BenchClock::now() - start).count();
}

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double ShowSeconds(const std::function<QWidget*()>& show) {
  const auto start = BenchClock::now();
  QWidget* const shown = show();
  if (!QTest::qWaitForWindowExposed(shown)) std::abort();
  return SecondsSince(start);
}

String Repeated(StringView line, int count) {
  String text;
  for (int i = 0; i < count; ++i) text.append(line).append(u"\r\n");
  return text;
}

WindowBench::WindowBench() : m_toolkit(qt::FindHelpFolder(), m_cancellation) {
  for (const char* name : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"}) {
    qputenv(name, m_folder.path().toUtf8());
  }
  HuntERR::SetEnvironment(&m_environment);
  timing::gTimedDriver = std::make_shared<timing::TimedDriver>(drivers::StandardDriver({m_clock}));
  gInstrumentDriver = timing::gTimedDriver;
  gInstrumentList = std::make_shared<KnownInstruments>();
  gRegistry = std::make_shared<drivers::DriverRegistry>("1");
  gSentLinesFile = OwnSentLinesFile();
  gCommandFiles = OwnCommandFiles();
  const auto makeWindow = [this](const std::function<void()>& createObjectFactory) {
    m_window = New<frmMain>(createObjectFactory);
    return modAppGlobals::MainForm{m_window, m_window, m_window};
  };
  m_startSeconds = ShowSeconds([&] {
    modAppGlobals::Main({[] {}, makeWindow, {}});
    const QWidgetList shown = QApplication::topLevelWidgets();
    return *std::find_if(shown.begin(), shown.end(), [](const QWidget* widget) { return widget->isVisible(); });
  });
  gConfiguration->ItemValue(u"InstrumentName", u"SIM::dmm::INSTR");
  Create<IConfiguration>(u"Configuration", {})->ItemValue(u"OpenfromTree", u"True");
  m_window->mnuFileOpenInstrument_Click();
}

WindowBench::~WindowBench() {
  Loop().FinishQuit();
  m_window->Form_Unload();
  m_window->Form_Terminate();
  m_window = nullptr;
  modAppGlobals::ReleaseObjectFactory();
  modAppGlobals::ReleaseMainForm();
  gCommandFiles = nullptr;
  gSentLinesFile = nullptr;
  gRegistry = nullptr;
  gInstrumentList = nullptr;
  gInstrumentDriver = nullptr;
  timing::gTimedDriver = nullptr;
  HuntERR::SetEnvironment(nullptr);
}

void WindowBench::SetOptions(bool on) {
  const StringView value = on ? u"On" : u"Off";
  for (const StringView option : {u"SCPIProtocolOPCPacing", u"SCPIProtocolAutoErrorChecking"}) {
    gConfiguration->ItemValue(option, value);
  }
  gConfiguration->ItemValue(u"ProtocolName", u"SCPI");
}

double WindowBench::Run(const String& lines) const {
  m_window->txtFuture()->Text(lines);
  const auto start = BenchClock::now();
  m_window->mnuRun_Click();
  return SecondsSince(start);
}

void WindowBench::Activate() {
  QWidget* const window = HistoryShown().window();
  window->activateWindow();
  if (!QTest::qWaitForWindowActive(window)) std::abort();
}

int WindowBench::LinesAwaited() const {
  return m_window->txtPast()->GetLineFromChar(m_window->txtPast()->TextLength()) + 1 - HistoryShown().blockCount();
}

} // namespace portico
