#include "views/faults/FaultMarks.h"

#include "document/reports/ReportEntities.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IReport.h"

#include <optional>
#include <utility>

namespace portico {

FaultMarks::FaultMarks(const Ref<ErrorMarks>& marks) : m_marks(marks) {
  m_faults.Completed.Connect([this] {
    JudgeAnswer();
    m_faults.Begin();
  });
}

void FaultMarks::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  const StringView kind = report->ClassName();
  if (kind == u"COpenCmd") m_instruction.clear();
  if (kind == u"CWriteCmd") {
    m_written = report->GetSCPIInstruction();
    String line = gConfiguration->ItemValue(Item::CurrentInstruction);
    if (!Trim(line).empty()) m_instruction = std::move(line);
  }
  const std::size_t before = m_faults.Outcomes().size();
  m_faults.Update(Subject);
  const auto& outcomes = m_faults.Outcomes();
  if (outcomes.size() <= before || !outcomes.back().Failure) return;
  if (modAppGlobals::IsShown(*report)) m_marks->MarkNewest(m_instruction, *outcomes.back().Failure);
}

/// With error checking on the answer of other queries comes last, too, where the user sends one from the menu.
void FaultMarks::JudgeAnswer() {
  const auto error = m_faults.ReportedError();
  const bool isErrorQuery =
      error && EqualNoCase(Trim(m_written), Trim(gConfiguration->ItemValue(Item::ErrorCheckingCommand)));
  if (isErrorQuery) m_marks->MarkNewest(m_instruction, *error);
}

} // namespace portico
