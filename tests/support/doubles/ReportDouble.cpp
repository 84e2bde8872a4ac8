#include "support/doubles/ReportDouble.h"

#include <utility>

namespace portico::test {

ReportDouble::ReportDouble(String className) : Class(std::move(className)) {}

StringView ReportDouble::ClassName() const { return Class; }

String ReportDouble::GetCommand() const { return Class; }

String ReportDouble::GetData() const { return ++Asked, Data; }

String ReportDouble::GetErrorMessage() const { return ErrorMessage; }

std::int32_t ReportDouble::GetErrorCode() const { return ++Asked, ErrorCode; }

String ReportDouble::GetSCPIInstruction() const { return ++Asked, SCPIInstruction; }

Ref<ReportDouble> ReportOf(const String& className, const String& data, std::int32_t errorCode) {
  auto report = New<ReportDouble>(className);
  report->Data = data;
  report->ErrorCode = errorCode;
  return report;
}

Ref<ReportDouble> WriteOf(const String& text, std::int32_t errorCode) {
  auto report = ReportOf(u"CWriteCmd", u"", errorCode);
  report->SCPIInstruction = text;
  return report;
}

} // namespace portico::test
