#include "views/completion/AcceptedLines.h"

#include "framework/shared/ErrorAnswer.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IReport.h"

#include <utility>

namespace portico {
namespace {

bool IsZero(StringView answer) {
  const StringView number = Trim(answer);
  const std::size_t digit = number.starts_with(u'+') ? 1 : 0;
  return number.size() > digit && number[digit] == u'0' && !ReportsError(answer);
}

} // namespace

AcceptedLines::AcceptedLines(const Ref<KnownCommands>& known) : m_known(known) {
  m_faults.Completed.Connect([this] {
    Judge();
    m_faults.Begin();
    m_line.clear();
  });
}

void AcceptedLines::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  const StringView kind = report->ClassName();
  if (kind == u"COpenCmd") m_known->Opened();
  if (kind == u"CWriteCmd") {
    String line = gConfiguration->ItemValue(Item::CurrentInstruction);
    if (!Trim(line).empty()) m_line = std::move(line);
  }
  m_faults.Update(Subject);
  if (kind == u"CReadCmd" && report->GetErrorCode() == 0 && EqualNoCase(Trim(m_faults.LastWritten()), u"*IDN?")) {
    m_known->Identify(report->GetData());
  }
}

void AcceptedLines::Judge() {
  const bool isChecked = m_faults.HasAskedForErrors() && m_faults.LastAnswer();
  if (Trim(m_line).empty() || !isChecked || !m_faults.DriverFailures().empty()) return;
  if (IsZero(*m_faults.LastAnswer())) m_known->Accept(m_line);
}

} // namespace portico
