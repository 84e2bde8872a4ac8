#pragma once

#include "support/doubles/ReportDouble.h"

namespace portico::test {

/// A report as a test writes it.
struct ReportText {
  String Command;
  String Data = {};
  std::int32_t ErrorCode = 0;
  String ErrorMessage = u"Success";
  String Instruction = {};
};

inline Ref<IObject> Report(const ReportText& text) {
  auto report = ReportOf(text.Command, text.Data, text.ErrorCode);
  report->ErrorMessage = text.ErrorMessage;
  report->SCPIInstruction = text.Instruction;
  return report;
}
inline Ref<IObject> WriteReport(const String& instruction) {
  return Report({.Command = u"CWriteCmd", .Instruction = instruction});
}
inline Ref<IObject> ReadReport(const String& data) { return Report({.Command = u"CReadCmd", .Data = data}); }
/// A failure shows its message as data too.
inline Ref<IObject> FailureReport(const String& command, std::int32_t code, const String& message) {
  return Report({.Command = command, .Data = message, .ErrorCode = code, .ErrorMessage = message});
}

} // namespace portico::test
