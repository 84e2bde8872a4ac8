#include "views/CInstructionRunner.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/Guards.h"
#include "framework/shared/IReport.h"
#include "instructions/CInstGenerator.h"
#include "platform/IEventLoop.h"
#include "views/CommandCreation.h"
#include "views/LineMarks.h"
#include "views/RunCommands.h"

namespace portico {
namespace {

/// The text of an instruction; empty for a remark and for every other kind of entity.
String InstructionText(const IDataEntity& entity) {
  if (entity.DataType() != DataTypeName::Instruction) return {};
  const String data = entity.ReadText();
  StringView text = Trim(data);
  text.remove_suffix(std::min(text.size(), NewLine.size()));
  return text.substr(0, RemarkWord.size()) == RemarkWord ? String() : String(text);
}

} // namespace

void CInstructionRunner::Initialize(const Ref<CSCPIView>& InstructionSource) try {
  HuntERR::Check(bool(InstructionSource), ErrorNumber::InvalidArgument, u"Instruction source cannot be nothing.");
  CheckFactory();
  m_stop = CreateCommand(Class::Stop, modGlobals::VarArray(), u"Cannot create a stop command.");
  m_source = InstructionSource;
  const auto publisher = Create(Class::CmdSubscriptionAgent);
  publisher->Subscribe(Ref<ISubscriber>(shared_from_this()));
  m_initialized = true;
} catch (...) {
  PassOn(u"CInstructionRunner.Initialize(InstructionSource)", {InstructionSource});
}

void CInstructionRunner::Update(const Ref<IObject>& Subject) try {
  CheckInitialized(m_initialized);
  HuntERR::Check(bool(Subject), ErrorNumber::InvalidArgument, u"Subject cannot be nothing.");
  const std::int32_t code = Cast<IReport>(Subject)->GetErrorCode();
  const bool goOn = code == ErrorNumber::SendNextInstruction;
  const bool ended = code == ErrorNumber::InstructionComplete;
  if (goOn) SendNextInstruction();
  if (ended) gConfiguration->ItemValue(Item::CurrentInstruction, {});
  if ((goOn || ended) && gConfiguration->ItemValue(Item::RunningMode) != ItemText::Off) ReadyForInstruction();
  gEventLoop->DoEvents();
} catch (...) {
  PassOn(u"CInstructionRunner.ISubscriber_Update(Subject)", {Subject});
}

void CInstructionRunner::SendNextInstruction() {
  const String text = TakeInstructionText();
  if (!text.empty()) {
    CreateCommand(Class::Step, modGlobals::VarArray(text), u"Cannot create a step command.")->Execute();
  }
  m_source->Instructions()->Dequeue();
  // The view is asked again: without the line's text its queue may end earlier than the one that the line came from.
  if (m_source->Instructions()->Count() == 0 || gConfiguration->ItemValue(Item::RunningMode) == ItemText::Step) {
    m_stop->Execute();
  }
  m_source->Refresh();
}

String CInstructionRunner::TakeInstructionText() {
  const Ref<CDataFIFO> queue = m_source->Instructions();
  HuntERR::Check(queue->Count() >= 1, ErrorNumber::InternalState,
                 u"Cannot send the next instruction. The instruction queue is empty.");
  String text = InstructionText(*queue->Peek());
  gConfiguration->ItemValue(Item::CurrentInstruction, text);
  if (text.empty()) return text;
  // Only the text of the instruction goes on to the step command, which takes an instruction and so refuses it.
  return CInstGenerator().ConstructXMLSCPICmdString(text)->Params()->Item(u"Data").ToString();
}

const CreatorRow CtorInstructionRunner = {
    .Name = u"CtorInstructionRunner",
    .Specification = Class::InstructionRunner,
    .ParamCount = Class::InstructionRunner.ParamCount,
    .Make =
        [](const Params& Parameters) {
          auto runner = New<CInstructionRunner>();
          runner->Initialize(Parameters[0].ToObject<CSCPIView>());
          return Ref<IObject>(runner);
        },
};

} // namespace portico
