#pragma once

#include "answers/AnswerFile.h"
#include "document/entities/ConversationPrinter.h"
#include "document/reports/FaultCollector.h"
#include "terminal/DriverNews.h"
#include "terminal/RepeatedFaults.h"
#include "terminal/RunLog.h"
#include "terminal/RunOptions.h"
#include "terminal/RunStatus.h"
#include "terminal/RunTurns.h"
#include "terminal/TerminalWindow.h"
#include "terminal/console/Interrupts.h"
#include "terminal/console/LineSource.h"
#include "terminal/console/Progress.h"

#include <ostream>

namespace portico::terminal {

/// Runs command lines on one instrument. Needs the factory, `gConfiguration` and the event loop; the window must be
/// `gMainForm` and `gScratchArea`. All must outlive it.
class BatchRun {
public:
  using Sources = std::vector<std::unique_ptr<LineSource>>;

  /// Diagnostics go to `err`, a line each, with the place that they come from. All arguments must outlive the run, and
  /// nobody else may listen to the news. `now` is the time of the event loop, which interrupts must wake.
  BatchRun(const RunOptions& options, const Ref<TerminalWindow>& window, const Interrupts& interrupts, DriverNews& news,
           std::ostream& out, std::ostream& err, RunTurns::Clock now = std::chrono::steady_clock::now);
  ~BatchRun();
  BatchRun(const BatchRun&) = delete;
  BatchRun& operator=(const BatchRun&) = delete;

  /// Opens the log and the instrument, runs all sources in order, gets the answer that is wanted, closes both. A run
  /// that is repeated needs sources that can begin anew.
  ExitStatus Run(const Sources& sources);

  /// Shows a message with the line that is being run.
  void Diagnose(const std::string& text);

private:
  struct Batch {
    std::vector<String> Lines;
    std::optional<TextFault> Fault;
  };

  void ApplyOptions();
  bool OpenAnswer();
  void GetAnswer();
  bool TakePiece(std::string_view piece);
  bool OpenLog();
  bool Open();
  void RunSources(const Sources& sources);
  void RunTurn(const Sources& sources);
  bool BeginNextTurn(const Sources& sources);
  void RunSource(LineSource& source);
  Batch NextBatch(LineSource& source);
  /// Of the source whose lines are being run, the one that is being run included.
  std::size_t LinesDone() const;
  std::string Place() const;
  void Tell(const std::string& line);
  void ListenToNews();
  void LineDone();
  void InstructionDone();
  void Close();
  void CloseLog();
  /// Judges what was collected of the instruction.
  void JudgeDriver();
  void JudgeAnswer();
  void NoteInterrupt();
  void Stop();

  const RunOptions& m_options;
  Ref<TerminalWindow> m_window;
  const Interrupts& m_interrupts;
  DriverNews& m_news;
  std::ostream& m_out;
  std::ostream& m_err;
  const RunTurns::Clock m_now;
  ConversationPrinter m_printer;
  Ref<FaultCollector> m_faults;
  RepeatedFaults m_repeated;
  std::optional<RunLog> m_log;
  std::optional<RunTurns> m_turns; // from the first one on
  std::optional<Progress> m_progress;
  std::optional<answers::AnswerFile> m_answer;
  RunStatus m_status;
  const LineSource* m_source = nullptr; // whose lines are being run
  std::size_t m_linesRead = 0;          // of that source, the batch that is being run included
  std::size_t m_linesBefore = 0;        // of the sources before it in this turn
  bool m_stop = false;
};

} // namespace portico::terminal
