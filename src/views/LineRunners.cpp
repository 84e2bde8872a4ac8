#include "views/LineRunners.h"

#include "framework/IConfiguration.h"
#include "framework/IMainWindow.h"
#include "framework/modGlobals.h"
#include "instructions/CInstGenerator.h"
#include "platform/IEventLoop.h"
#include "views/CommandCreation.h"

namespace portico {

void LineRunner::Execute() {
  CPopALine popper;
  popper.CmdQueue(m_queue);
  Begin();
  LineKind kind = LineKind::None;
  String line;
  do {
    line = popper.Pop(kind);
  } while (Handle(line, kind));
}

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

bool LineRunner::SendLine(const String& line) {
  const Ref<CInstContainer> instruction = CInstGenerator().ConstructXMLSCPICmdString(line);
  gConfiguration->ItemValue(u"CurrentInstruction", line);
  if (instruction->FunctionName().empty()) return false;
  CreateCommand(u"Step", modGlobals::VarArray(instruction), u"Cannot create a step command.")->Execute();
  return true;
}

bool CCommandRunner::Handle(const String& line, LineKind kind) {
  if (!std::exchange(m_first, false)) gEventLoop->DoEvents();
  if (IsOver(line)) return false;
  Act(line, kind);
  return true;
}

bool CCommandStepper::Handle(const String& line, LineKind kind) {
  const bool sent = Act(line, kind);
  gEventLoop->DoEvents();
  return !sent && !IsOver(line);
}

void CCommandCursorRunner::Begin() {
  m_target = Queue().GetLineFromChar(Queue().SelStart());
  m_count = 0;
}

bool CCommandCursorRunner::Handle(const String& line, LineKind kind) {
  ++m_count;
  Act(line, kind);
  gEventLoop->DoEvents();
  return m_count != m_target && !IsOver(line);
}

} // namespace portico
