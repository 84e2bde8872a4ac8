#include "support/doubles/ReportRecorder.h"

#include "framework/shared/IReport.h"

namespace portico::test {

ReportRecorder::ReportRecorder(Journal& journal) : m_journal(journal) {}

StringView ReportRecorder::ClassName() const { return u"ReportRecorder"; }

void ReportRecorder::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  Reports.push_back({report->GetCommand(), report->GetData(), report->GetErrorMessage(), report->GetErrorCode(),
                     report->GetSCPIInstruction()});
  m_journal.push_back("report " + ToUtf8(report->GetCommand()));
  if (OnReport) OnReport();
}

void PrintTo(const ReportRecorder::Report& report, std::ostream* out) {
  *out << ToUtf8(report.Command) << ", data '" << ToUtf8(report.Data) << "', message '" << ToUtf8(report.ErrorMessage)
       << "', code " << report.ErrorCode << ", text '" << ToUtf8(report.SCPIInstruction) << "'";
}

} // namespace portico::test
