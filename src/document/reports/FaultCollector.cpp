#include "document/reports/FaultCollector.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/shared/ErrorAnswer.h"
#include "framework/shared/IConfiguration.h"
#include "framework/shared/IReport.h"

#include <utility>

namespace portico {
namespace {

constexpr StringView WriteCommand = u"CWriteCmd";
constexpr StringView ReadCommand = u"CReadCmd";

} // namespace

void FaultCollector::Begin() {
  m_outcomes.clear();
  m_lastAnswer.reset();
  m_writeFailed = false;
}

std::vector<String> FaultCollector::DriverFailures() const {
  std::vector<String> failures;
  for (const Outcome& outcome : m_outcomes) {
    if (outcome.Failure) failures.push_back(*outcome.Failure);
  }
  return failures;
}

bool FaultCollector::HasAskedForErrors() const {
  return EqualNoCase(Trim(m_written), Trim(gConfiguration->ItemValue(Item::ErrorCheckingCommand)));
}

/// With error checking on the answer of other queries comes last, too, where the user sends one from the menu.
std::optional<String> FaultCollector::ReportedError() const {
  const bool isAsked =
      gConfiguration->IsOn(Item::AutoErrorCheckingMode) && gConfiguration->IsOn(Item::AutoReadAfterQueryMode);
  if (!isAsked || !m_lastAnswer || !ReportsError(*m_lastAnswer) || !HasAskedForErrors()) return {};
  return m_lastAnswer;
}

void FaultCollector::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  const std::int32_t code = report->GetErrorCode();
  // Marks, no failures.
  if (code == ErrorNumber::InstructionComplete) return Completed();
  if (code == ErrorNumber::SendNextInstruction) return;
  String command = report->GetCommand();
  if (command == WriteCommand) {
    m_lastAnswer.reset();
    m_written = report->GetSCPIInstruction();
    m_writeFailed = code != 0;
  }
  if (command == ReadCommand) {
    if (code == 0) m_lastAnswer = report->GetData();
    if (code != 0 && m_writeFailed) return;
  }
  m_outcomes.push_back({std::move(command), code == 0 ? std::nullopt : std::optional(report->GetErrorMessage())});
}

} // namespace portico
