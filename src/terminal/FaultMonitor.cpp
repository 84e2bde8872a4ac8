#include "terminal/FaultMonitor.h"

#include "framework/ErrorNumbers.h"

namespace portico::terminal {

void FaultMonitor::Begin() {
  m_driverFailures.clear();
  m_lastAnswer.reset();
}

void FaultMonitor::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  const std::int32_t code = report->GetErrorCode();
  // Marks, no failures.
  if (code == ErrorNumber::InstructionComplete) return Completed();
  if (code == ErrorNumber::SendNextInstruction) return;
  if (code != 0) m_driverFailures.push_back(report->GetErrorMessage());
  const String command = report->GetCommand();
  if (command == u"CWriteCmd") m_lastAnswer.reset();
  if (command == u"CReadCmd" && code == 0) m_lastAnswer = report->GetData();
}

bool ReportsError(StringView answer) {
  answer = TrimLeft(answer);
  if (!answer.empty() && (answer.front() == u'+' || answer.front() == u'-')) answer.remove_prefix(1);
  const auto digits = answer.substr(0, answer.find_first_not_of(u"0123456789"));
  return digits.find_first_not_of(u'0') != StringView::npos;
}

} // namespace portico::terminal
