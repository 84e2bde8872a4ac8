#pragma once

#include "framework/shared/IReport.h"

#include <utility>

namespace portico::test {

/// A report as a test writes it.
struct ReportText {
  String Command;
  String Data = {};
  std::int32_t ErrorCode = 0;
  String ErrorMessage = u"Success";
  String Instruction = {};
};

class HandMadeReport final : public IReport {
public:
  explicit HandMadeReport(ReportText text) : m_text(std::move(text)) {}

  StringView ClassName() const override { return u"HandMadeReport"; }
  String GetCommand() const override { return m_text.Command; }
  String GetData() const override { return m_text.Data; }
  String GetErrorMessage() const override { return m_text.ErrorMessage; }
  std::int32_t GetErrorCode() const override { return m_text.ErrorCode; }
  String GetSCPIInstruction() const override { return m_text.Instruction; }

private:
  ReportText m_text;
};

inline Ref<IObject> Report(ReportText text) { return New<HandMadeReport>(std::move(text)); }
inline Ref<IObject> WriteReport(const String& instruction) {
  return Report({.Command = u"CWriteCmd", .Instruction = instruction});
}
inline Ref<IObject> ReadReport(const String& data) { return Report({.Command = u"CReadCmd", .Data = data}); }
/// A failure shows its message as data too.
inline Ref<IObject> FailureReport(const String& command, std::int32_t code, const String& message) {
  return Report({.Command = command, .Data = message, .ErrorCode = code, .ErrorMessage = message});
}

} // namespace portico::test
