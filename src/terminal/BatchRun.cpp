#include "terminal/BatchRun.h"

#include "framework/errors/HuntERR.h"
#include "framework/errors/Quit.h"
#include "framework/objects/IObjectFactory.h"
#include "framework/shared/IConfiguration.h"
#include "instructions/InstrumentAccess.h"
#include "terminal/console/Diagnostic.h"

#include <algorithm>
#include <utility>

namespace portico::terminal {
namespace {

constexpr std::size_t LongestBatch = 1000; // lines that stand in the command window at once

std::optional<std::size_t> TotalOf(const BatchRun::Sources& sources) {
  std::size_t total = 0;
  for (const auto& source : sources) {
    const auto lines = source->LinesLeft();
    if (!lines) return {};
    total += *lines;
  }
  return total;
}

} // namespace

BatchRun::BatchRun(const RunOptions& options, const Ref<TerminalWindow>& window, const Interrupts& interrupts,
                   DriverNews& news, std::ostream& out, std::ostream& err, RunTurns::Clock now)
    : m_options(options),
      m_window(window),
      m_interrupts(interrupts),
      m_news(news),
      m_out(out),
      m_err(err),
      m_now(std::move(now)),
      m_printer(out, options.ToTerminal),
      m_faults(New<FaultCollector>()),
      m_repeated([this](const std::string& line) { Tell(line); }) {
  m_window->Load();
  ListenToNews();
  m_faults->Completed.Connect([this] { InstructionDone(); });
  if (!options.Quiet) {
    m_window->Shown.Connect([this](const IDataEntity& entity) { m_printer.Show(entity); });
    m_window->Remarked.Connect([this](const String& line) { m_printer.Remark(line); });
  }
  m_window->Remarked.Connect([this](const String&) { LineDone(); });
}

BatchRun::~BatchRun() {
  Create(Class::CmdSubscriptionAgent)->Unsubscribe(m_faults);
  m_news.AboutToWait = {};
  m_news.Recovered = {};
  m_news.AnswerDropped = {};
  m_window->Unload();
}

void BatchRun::ListenToNews() {
  m_news.AboutToWait.Connect([this] { m_out.flush(); });
  m_news.Recovered.Connect([this](const std::string& what) { // a read that succeeds ends its repetition
    m_repeated.Failed(u"CReadCmd", {}, what);
  });
  // It counts as a failure of the driver, but the channel has had an answer: nothing stops at it.
  m_news.AnswerDropped.Connect([this](std::size_t length) {
    Diagnose("an answer of " + std::to_string(length) + " bytes is too long and was dropped");
    m_status.Note(ExitStatus::DriverFailure);
  });
}

std::size_t BatchRun::LinesDone() const { return m_linesRead - m_window->LinesLeft(); }

std::string BatchRun::Place() const {
  if (m_source == nullptr || LinesDone() == 0) return {};
  return m_source->Name() + ":" + std::to_string(LinesDone()) + m_turns->Mark() + ": ";
}

void BatchRun::Diagnose(const std::string& text) { Tell(Place() + text); }

void BatchRun::Tell(const std::string& line) {
  if (m_progress) m_progress->Erase();
  m_out.flush(); // what was shown before it comes first
  m_err << Diagnostic(line) << std::endl;
}

ExitStatus BatchRun::Run(const Sources& sources) {
  try {
    ApplyOptions();
    if (!m_interrupts.Requested() && OpenAnswer() && OpenLog()) {
      // Behind the logger: when an instruction is judged, everybody has heard of it.
      Create(Class::CmdSubscriptionAgent)->Subscribe(m_faults);
      if (Open()) {
        RunSources(sources);
        GetAnswer();
        Close();
      }
    }
  } catch (const Quit&) {
    NoteInterrupt();
  } catch (...) {
    StopHere(u"BatchRun.Run(sources)");
    Diagnose("internal error");
    m_err << ToUtf8(HuntERR::ErrDescription()) << std::endl;
    m_status.Note(ExitStatus::Internal);
  }
  m_source = nullptr;
  m_repeated.End();
  if (m_progress) m_progress->Erase();
  CloseLog();
  if (m_interrupts.Requested()) NoteInterrupt();
  m_out.flush();
  if (!m_out) {
    Diagnose("standard output cannot be written");
    m_status.Note(ExitStatus::Internal);
  }
  return m_status.Gravest();
}

void BatchRun::ApplyOptions() {
  for (const auto& [name, value] : m_options.Options) gConfiguration->ItemValue(name, value);
  gConfiguration->ItemValue(Item::ProtocolName, m_options.Protocol); // only this brings the options into effect
  // An item of the builders' that no option of the protocol stands behind.
  if (m_options.ReadAfterQuery) gConfiguration->ItemValue(Item::AutoReadAfterQueryMode, ItemText::On);
  gConfiguration->ItemValue(Item::CurrentInstruction, {});
}

/// Before anything is sent: where it cannot be, the run would be in vain.
bool BatchRun::OpenAnswer() {
  if (!m_options.Get) return true;
  m_answer.emplace(m_options.Get->File);
  if (m_answer->Open()) return true;
  Diagnose(ToUtf8(m_answer->Fault()));
  m_status.Note(ExitStatus::Usage);
  return false;
}

bool BatchRun::OpenLog() try {
  if (m_options.LogFile.empty()) return true;
  const auto onFailure = [this](StringView failure) {
    m_repeated.Failed(u"CXMLDataStore", Place(), "the log cannot be written: " + ToUtf8(failure));
  };
  m_log.emplace(m_options.LogFile, m_options.Overwrite, onFailure, [this] { m_news.AboutToWait(); });
  return true;
} catch (const Quit&) {
  throw;
} catch (...) {
  StopHere(u"BatchRun.OpenLog()");
  Diagnose("cannot log to " + ToUtf8(m_options.LogFile) + ": " + WhatFailed());
  m_status.Note(ExitStatus::Usage);
  return false;
}

bool BatchRun::Open() {
  m_faults->Begin();
  const auto termination = InstrumentAccess::Open(m_options.Instrument);
  if (!termination) {
    m_status.Note(ExitStatus::NotOpened);
    if (m_interrupts.RequestedAgain()) return false; // it was the user who ended it
    const auto failures = m_faults->DriverFailures();
    Diagnose("cannot open " + ToUtf8(m_options.Instrument) +
             (failures.empty() ? std::string() : ": " + ToUtf8(failures.back())));
    return false;
  }
  m_faults->Begin();
  InstrumentAccess::SetTermination(*termination);
  JudgeDriver();
  m_faults->Begin();
  return true;
}

void BatchRun::RunSources(const Sources& sources) {
  m_turns.emplace(m_options.Repeat, m_interrupts, m_now);
  if (m_options.ShowProgress) {
    m_progress.emplace(m_err, m_now, TotalOf(sources));
    m_progress->Begin(m_turns->Heading());
    m_turns->Waits.Connect([this](RunTurns::TimePoint until) { m_progress->ShowWait(m_turns->Heading(1), until); });
  }
  do {
    RunTurn(sources);
  } while (BeginNextTurn(sources));
  if (m_interrupts.Requested()) NoteInterrupt();
  m_source = nullptr;
  if (const auto skipped = m_turns->Skipped(); skipped > 0) {
    Diagnose(std::to_string(skipped) + (skipped == 1 ? " turn was" : " turns were") +
             " skipped, because the one in front was not over in time");
  }
}

void BatchRun::RunTurn(const Sources& sources) {
  m_linesBefore = 0;
  for (const auto& source : sources) {
    if (!m_stop && !m_interrupts.Requested()) RunSource(*source);
  }
}

/// Waits for it; false if there is none.
bool BatchRun::BeginNextTurn(const Sources& sources) {
  if (m_stop || m_interrupts.Requested() || !m_turns->WaitForNext()) return false;
  if (m_progress) m_progress->Begin(m_turns->Heading());
  return std::all_of(sources.begin(), sources.end(), [](const auto& source) { return source->Rewind(); });
}

void BatchRun::RunSource(LineSource& source) {
  m_source = &source;
  m_linesRead = 0;
  while (!m_stop && !m_interrupts.Requested()) {
    const Batch batch = NextBatch(source);
    m_linesRead += batch.Lines.size();
    if (!batch.Lines.empty()) m_window->RunLines(batch.Lines);
    if (batch.Fault && !m_stop) {
      m_source = nullptr; // the fault tells its place itself
      Diagnose(Describe(source.Name(), *batch.Fault));
      m_status.Note(ExitStatus::Usage);
      m_stop = true;
    }
    if (batch.Lines.empty()) break;
  }
  m_linesBefore += m_linesRead;
}

void BatchRun::GetAnswer() {
  if (!m_answer || m_stop || m_interrupts.Requested()) return;
  m_progress.reset(); // that of the lines
  m_faults->Begin();
  const auto response =
      InstrumentAccess::Fetch(m_options.Get->Query, [this](std::string_view piece) { return TakePiece(piece); });
  m_window->ForgetHistory();
  if (m_progress) m_progress->Erase();
  if (m_interrupts.Requested()) return;
  const bool hasCome = response->ErrorCode() == 0;
  if (hasCome) m_answer->Finish();
  if (const String& fault = m_answer->Fault(); !fault.empty()) {
    Diagnose(ToUtf8(fault));
    m_status.Note(m_answer->IsTorn() ? ExitStatus::DriverFailure : ExitStatus::Internal);
    return;
  }
  JudgeDriver();
  if (hasCome || !m_faults->DriverFailures().empty()) return;
  Diagnose(ToUtf8(m_options.Get->Query) + ": " + ToUtf8(response->ErrorMessage())); // it was not even asked
  m_status.Note(ExitStatus::DriverFailure);
}

/// Counts in thousands of bytes.
bool BatchRun::TakePiece(std::string_view piece) {
  constexpr std::uint64_t thousand = 1000;
  if (m_interrupts.Requested() || !m_answer->Add(piece)) return false;
  if (!m_options.ShowProgress) return true;
  if (!m_progress) {
    const std::uint64_t total = m_answer->Total() / thousand;
    m_progress.emplace(m_err, m_now, total == 0 ? std::nullopt : std::optional<std::size_t>(total),
                       Progress::Unit{"kB", "kB"});
  }
  m_progress->Show(m_answer->Done() / thousand);
  return true;
}

/// All complete lines that are at hand; waits for the first.
BatchRun::Batch BatchRun::NextBatch(LineSource& source) {
  Batch batch;
  if (!source.HasLineAtHand()) m_news.AboutToWait();
  do {
    auto next = source.Next();
    if (auto* fault = std::get_if<TextFault>(&next)) {
      batch.Fault = std::move(*fault);
      break;
    }
    auto& line = std::get<std::optional<String>>(next);
    if (!line) break;
    batch.Lines.push_back(std::move(*line));
  } while (batch.Lines.size() < LongestBatch && source.HasLineAtHand());
  return batch;
}

void BatchRun::LineDone() {
  if (m_interrupts.Requested()) NoteInterrupt(); // before the next line is taken off
  m_window->ForgetHistory();
  if (m_progress) m_progress->Show(m_linesBefore + LinesDone());
}

void BatchRun::InstructionDone() {
  if (m_source == nullptr) return; // opening and closing are judged where they are done
  JudgeDriver();
  JudgeAnswer();
  m_faults->Begin();
  LineDone();
}

void BatchRun::Close() {
  m_faults->Begin();
  InstrumentAccess::Close();
  JudgeDriver();
}

void BatchRun::CloseLog() {
  if (!m_log) return;
  std::string reason;
  try {
    m_log->Close();
  } catch (...) {
    StopHere(u"BatchRun.CloseLog()");
    reason = ": " + WhatFailed();
  }
  if (reason.empty() && !m_log->IsIncomplete()) return;
  Diagnose("the log is incomplete" + reason);
  m_status.Note(ExitStatus::Internal);
}

void BatchRun::JudgeDriver() {
  if (m_interrupts.RequestedAgain()) return; // what fails now fails by that
  for (const auto& [command, failure] : m_faults->Outcomes()) {
    if (!failure) {
      m_repeated.Succeeded(command);
      continue;
    }
    m_repeated.Failed(command, Place(), ToUtf8(*failure));
    m_status.Note(ExitStatus::DriverFailure);
    if (m_options.StopOnError) Stop();
  }
}

void BatchRun::JudgeAnswer() {
  const auto error = m_faults->ReportedError();
  if (!error) return;
  Diagnose("the instrument reports " + ToUtf8(*error));
  m_status.Note(ExitStatus::InstrumentError);
  if (m_options.StopOnError) Stop();
}

void BatchRun::NoteInterrupt() {
  if (m_status.Gravest() == ExitStatus::Interrupted) return; // it is told
  Diagnose("interrupted");
  m_status.Note(ExitStatus::Interrupted);
}

void BatchRun::Stop() {
  m_stop = true;
  m_window->StopRequested(true);
}

} // namespace portico::terminal
