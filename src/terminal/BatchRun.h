#pragma once

#include "terminal/Conversation.h"
#include "terminal/FaultMonitor.h"
#include "terminal/Interrupts.h"
#include "terminal/LineSource.h"
#include "terminal/RunOptions.h"
#include "terminal/RunStatus.h"

#include <ostream>

namespace portico::terminal {

/// Runs command lines on one instrument. Needs the factory, `gConfiguration` and the event loop; all must outlive it.
class BatchRun {
public:
  /// Diagnostics go to `err`, a line each, with the place that they come from. All arguments must outlive the run.
  BatchRun(const RunOptions& options, const Interrupts& interrupts, std::ostream& out, std::ostream& err);
  ~BatchRun();
  BatchRun(const BatchRun&) = delete;
  BatchRun& operator=(const BatchRun&) = delete;

  /// Opens the instrument, runs all sources in order, closes it.
  ExitStatus Run(const std::vector<std::unique_ptr<LineSource>>& sources);

  /// Shows a message with the line that is being run.
  void Diagnose(const std::string& text);

private:
  void ApplyOptions();
  bool Open();
  void RunSource(LineSource& source);
  void RunLine(const String& line);
  void SendLine(const String& line);
  void Close();
  void Judge();

  const RunOptions& m_options;
  const Interrupts& m_interrupts;
  std::ostream& m_out;
  std::ostream& m_err;
  Ref<Conversation> m_conversation;
  Ref<FaultMonitor> m_faults;
  RunStatus m_status;
  std::string m_place; // "FILE:LINE: " of the line being run
  bool m_stop = false;
};

} // namespace portico::terminal
