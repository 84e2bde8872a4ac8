#pragma once

#include "application/HostEnvironment.h"
#include "benchmarks/Samples.h"
#include "drivers/SteadyClock.h"
#include "qt/Toolkit.h"
#include "qt/loop/EventLoop.h"
#include "system/Cancellation.h"
#include "ui/main/frmMain.h"

#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace portico {

using BenchClock = std::chrono::steady_clock;

double SecondsSince(BenchClock::time_point start);
/// What the program has taken of the processor so far.
double ProcessorSeconds();
/// From `show` until the window that it shows is exposed.
double ShowSeconds(const std::function<QWidget*()>& show);

String Repeated(StringView line, int count);

/// The program as its `main` wires it, in folders of its own, with the simulated multimeter open. Needs a
/// `QApplication`.
class WindowBench {
public:
  WindowBench();
  WindowBench(const WindowBench&) = delete;
  WindowBench& operator=(const WindowBench&) = delete;
  ~WindowBench();

  frmMain& Window() const { return *m_window; }
  qt::EventLoop& Loop() const { return m_toolkit.Loop(); }
  /// Of the benchmark's own folder.
  std::string File(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)).toStdString(); }
  /// From the program's start to the shown window.
  double StartSeconds() const { return m_startSeconds; }

  /// OPC pacing and error checks; both are off or on.
  static void SetOptions(bool on);
  void Click(StringView item) const { FindControl<IMenuItem>(m_window->Form(), item).Click()(); }
  /// Seconds.
  double Run(const String& lines) const;
  /// Gives the main window the keyboard.
  static void Activate();
  /// The lines of the history that are not shown yet.
  int LinesAwaited() const;

private:
  QTemporaryDir m_folder;
  HostEnvironment m_environment;
  drivers::SteadyClock m_clock;
  system::Cancellation m_cancellation;
  qt::Toolkit m_toolkit;
  Ref<frmMain> m_window;
  double m_startSeconds = 0;
};

} // namespace portico
