#include "views/LineRunners.h"

#include "framework/objects/modGlobals.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IMainWindow.h"
#include "framework/text/EndOfText.h"
#include "instructions/CInstGenerator.h"
#include "platform/IEventLoop.h"
#include "views/CommandCreation.h"
#include "views/LineMarks.h"
#include "views/RunCommands.h"

namespace portico {

bool LineRunner::IsOver(StringView line) { return BeginsWith(line, EndOfText) || gMainForm->StopRequested(); }

bool LineRunner::Act(const String& line, LineKind kind) {
  switch (kind) {
  case LineKind::CmdInstruction:
    return SendLine(line);
  case LineKind::CmdRemark:
  case LineKind::CmdBlank:
    Add2History(line);
    return false;
  default:
    return false; // a conversation that was pasted does not send its answers
  }
}

void LineRunner::SetUp(CPopALine& popper) const {
  popper.CmdQueue(m_queue);
  popper.Account(m_account);
}

bool LineRunner::SendLine(const String& line) {
  const Ref<CInstContainer> instruction = CInstGenerator().ConstructXMLSCPICmdString(line);
  gConfiguration->ItemValue(Item::CurrentInstruction, line);
  if (instruction->FunctionName().empty()) return false;
  Sending(line);
  CreateCommand(Class::Step, modGlobals::VarArray(instruction), u"Cannot create a step command.")->Execute();
  return true;
}

void CCommandRunner::Execute() {
  CPopALine popper;
  SetUp(popper);
  LineKind kind = LineKind::None;
  String line = popper.Pop(kind);
  while (!IsOver(line)) {
    Act(line, kind);
    line = popper.Pop(kind);
    gEventLoop->DoEvents();
  }
}

void CCommandStepper::Execute() {
  CPopALine popper;
  SetUp(popper);
  LineKind kind = LineKind::None;
  String line;
  bool isSent = false;
  do {
    line = popper.Pop(kind);
    isSent = Act(line, kind);
    gEventLoop->DoEvents();
  } while (!isSent && !IsOver(line));
}

void CCommandCursorRunner::Execute() {
  // In lines of the box, while what is counted are lines taken off.
  const std::int32_t target = Queue()->GetLineFromChar(Queue()->SelStart());
  std::int32_t count = 0;
  CPopALine popper;
  SetUp(popper);
  LineKind kind = LineKind::None;
  String line;
  do {
    line = popper.Pop(kind);
    ++count;
    Act(line, kind);
    gEventLoop->DoEvents();
  } while (count != target && !IsOver(line));
}

} // namespace portico
