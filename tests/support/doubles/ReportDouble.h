#pragma once

#include "framework/shared/IReport.h"

namespace portico::test {

/// A report of any class. It counts how often its text is asked for.
class ReportDouble final : public IReport {
public:
  explicit ReportDouble(String className) : Class(std::move(className)) {}
  StringView ClassName() const override { return Class; }
  String GetCommand() const override { return Class; }
  String GetData() const override { return ++Asked, Data; }
  String GetErrorMessage() const override { return ErrorMessage; }
  std::int32_t GetErrorCode() const override { return ++Asked, ErrorCode; }
  String GetSCPIInstruction() const override { return ++Asked, SCPIInstruction; }

  String Class;
  String Data;
  String ErrorMessage;
  std::int32_t ErrorCode = 0;
  String SCPIInstruction;
  mutable int Asked = 0;
};

inline Ref<ReportDouble> ReportOf(const String& className, const String& data, std::int32_t errorCode = 0) {
  auto report = New<ReportDouble>(className);
  report->Data = data;
  report->ErrorCode = errorCode;
  return report;
}

inline Ref<ReportDouble> WriteOf(const String& text, std::int32_t errorCode = 0) {
  auto report = ReportOf(u"CWriteCmd", u"", errorCode);
  report->SCPIInstruction = text;
  return report;
}

} // namespace portico::test
