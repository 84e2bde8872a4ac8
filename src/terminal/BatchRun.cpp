#include "terminal/BatchRun.h"

#include "framework/HuntERR.h"
#include "framework/IConfiguration.h"
#include "framework/IObjectFactory.h"
#include "framework/Quit.h"
#include "framework/modGlobals.h"
#include "instructions/CInstGenerator.h"
#include "instructions/IInstProcessor.h"
#include "platform/IEventLoop.h"
#include "terminal/Diagnostic.h"
#include "terminal/LineKind.h"

namespace portico::terminal {
namespace {

Ref<IPublisher> Agent() { return Create<IPublisher>(u"CmdSubscriptionAgent", modGlobals::VarArray()); }

void Send(const Ref<CInstContainer>& instruction) {
  const auto processor = Create<IInstProcessor>(u"InstructionProcessor", modGlobals::VarArray());
  HuntERR::Check(processor->Send(instruction) == IInstProcessor::Done, ErrorNumber::CannotCarryOut,
                 u"Instruction was not handled.");
}

bool IsOn(StringView item) { return gConfiguration->ItemValue(item) == u"On"; }

} // namespace

BatchRun::BatchRun(const RunOptions& options, const Interrupts& interrupts, std::ostream& out, std::ostream& err)
    : m_options(options), m_interrupts(interrupts), m_out(out), m_err(err), m_faults(New<FaultMonitor>()) {
  Agent()->Subscribe(m_faults);
  if (options.Quiet) return;
  m_conversation = New<Conversation>(out);
  Agent()->Subscribe(m_conversation);
}

BatchRun::~BatchRun() {
  Agent()->Unsubscribe(m_faults);
  if (m_conversation) Agent()->Unsubscribe(m_conversation);
}

void BatchRun::Diagnose(const std::string& text) { m_err << Diagnostic(m_place + text) << std::endl; }

ExitStatus BatchRun::Run(const std::vector<std::unique_ptr<LineSource>>& sources) {
  try {
    ApplyOptions();
    if (Open()) {
      for (const auto& source : sources) {
        if (!m_stop) RunSource(*source);
      }
      m_place.clear();
      Close();
    }
  } catch (const Quit&) {
    m_status.Note(ExitStatus::Interrupted);
  } catch (...) {
    StopHere(u"BatchRun.Run(sources)");
    Diagnose("internal error");
    m_err << ToUtf8(HuntERR::ErrDescription()) << std::endl;
    m_status.Note(ExitStatus::Internal);
  }
  if (m_interrupts.Requested()) m_status.Note(ExitStatus::Interrupted);
  if (!m_out) {
    Diagnose("standard output cannot be written");
    m_status.Note(ExitStatus::Internal);
  }
  return m_status.Gravest();
}

void BatchRun::ApplyOptions() {
  for (const auto& [name, value] : m_options.Options) gConfiguration->ItemValue(name, value);
  gConfiguration->ItemValue(u"ProtocolName", m_options.Protocol); // only this brings the options into effect
  gConfiguration->ItemValue(u"CurrentInstruction", {});
}

bool BatchRun::Open() {
  const CInstGenerator generator;
  m_faults->Begin();
  Send(generator.ConstructXMLOpenCmdString(m_options.Instrument));
  gConfiguration->ItemValue(u"InstrumentName", m_options.Instrument);
  if (!Value(gConfiguration->ItemValue(u"InstrumentOpened")).ToBoolean()) {
    const auto& failures = m_faults->DriverFailures();
    Diagnose("cannot open " + ToUtf8(m_options.Instrument) +
             (failures.empty() ? std::string() : ": " + ToUtf8(failures.back())));
    m_status.Note(ExitStatus::NotOpened);
    return false;
  }
  m_faults->Begin();
  Send(generator.ConstructXMLSetAttribCmdString(u"TERMCHAR", gConfiguration->ItemValue(u"TERMCHAR")));
  Judge();
  return true;
}

void BatchRun::RunSource(LineSource& source) {
  for (std::size_t number = 1; !m_stop; ++number) {
    auto next = source.Next();
    if (const auto* fault = std::get_if<TextFault>(&next)) {
      m_place.clear();
      Diagnose(Describe(source.Name(), *fault));
      m_status.Note(ExitStatus::Usage);
      m_stop = true;
      return;
    }
    const auto& line = std::get<std::optional<String>>(next);
    if (!line) return;
    m_place = source.Name() + ":" + std::to_string(number) + ": ";
    RunLine(String(TrimLeft(*line)));
    gEventLoop->DoEvents();
    m_stop = m_stop || m_interrupts.Requested();
  }
}

void BatchRun::RunLine(const String& line) {
  switch (KindOf(line)) {
  case LineKind::Blank:
  case LineKind::Remark:
    if (m_conversation) m_conversation->Remark(line);
    break;
  case LineKind::Instruction:
    SendLine(line);
    break;
  case LineKind::Response:
  case LineKind::Automatic:
    break; // pasted history is not sent again
  }
}

void BatchRun::SendLine(const String& line) {
  const auto instruction = CInstGenerator().ConstructXMLSCPICmdString(line);
  gConfiguration->ItemValue(u"CurrentInstruction", line);
  m_faults->Begin();
  Send(instruction);
  Judge();
  const auto& answer = m_faults->LastAnswer();
  if (answer && IsOn(u"AutoErrorCheckingMode") && IsOn(u"AutoReadAfterQueryMode") && ReportsError(*answer)) {
    Diagnose("the instrument reports " + ToUtf8(*answer));
    m_status.Note(ExitStatus::InstrumentError);
    m_stop = m_stop || m_options.StopOnError;
  }
}

void BatchRun::Close() {
  m_faults->Begin();
  Send(CInstGenerator().ConstructXMLCloseCmdString());
  gConfiguration->ItemValue(u"InstrumentName", {});
  gConfiguration->ItemValue(u"InstrumentOpened", Value(false).ToString());
  Judge();
}

void BatchRun::Judge() {
  for (const String& failure : m_faults->DriverFailures()) {
    Diagnose(ToUtf8(failure));
    m_status.Note(ExitStatus::DriverFailure);
    m_stop = m_stop || m_options.StopOnError;
  }
}

} // namespace portico::terminal
