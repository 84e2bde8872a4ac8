#include "views/faults/FaultMarks.h"

#include "document/reports/ReportEntities.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IReport.h"

#include <utility>

namespace portico {

FaultMarks::FaultMarks(const Ref<ErrorMarks>& marks) : m_marks(marks) {
  m_faults.Completed.Connect([this] {
    if (const auto error = m_faults.ReportedError()) m_marks->MarkNewest(m_instruction, *error);
    m_faults.Begin();
  });
}

void FaultMarks::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  const StringView kind = report->ClassName();
  if (kind == u"COpenCmd") m_instruction.clear();
  if (kind == u"CWriteCmd") {
    String line = gConfiguration->ItemValue(Item::CurrentInstruction);
    if (!Trim(line).empty()) m_instruction = std::move(line);
  }
  const std::size_t before = m_faults.Outcomes().size();
  m_faults.Update(Subject);
  const auto& outcomes = m_faults.Outcomes();
  if (outcomes.size() <= before || !outcomes.back().Failure) return;
  if (modAppGlobals::IsShown(*report)) m_marks->MarkNewest(m_instruction, *outcomes.back().Failure);
}

} // namespace portico
