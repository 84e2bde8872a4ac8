#pragma once

#include "framework/shared/IReport.h"

namespace portico::test {

/// A report of any class. It counts how often its text is asked for.
class ReportDouble final : public IReport {
public:
  explicit ReportDouble(String className);
  StringView ClassName() const override;
  String GetCommand() const override;
  String GetData() const override;
  String GetErrorMessage() const override;
  std::int32_t GetErrorCode() const override;
  String GetSCPIInstruction() const override;

  String Class;
  String Data;
  String ErrorMessage;
  std::int32_t ErrorCode = 0;
  String SCPIInstruction;
  mutable int Asked = 0;
};

Ref<ReportDouble> ReportOf(const String& className, const String& data, std::int32_t errorCode = 0);
/// That of a written instruction.
Ref<ReportDouble> WriteOf(const String& text, std::int32_t errorCode = 0);

} // namespace portico::test
