#include "channel/CReport.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

namespace portico {

void CReport::Initialize(const String& Command, const Ref<CInstContainer>& Data, std::int32_t ErrorCode,
                         const String& ErrorMessage, const String& SCPIInstruction) try {
  HuntERR::Check(!Command.empty(), ErrorNumber::InvalidArgument, u"Command cannot be an empty string.");
  m_command = Command;
  m_data = Data;
  m_errorCode = ErrorCode;
  m_errorMessage = ErrorMessage;
  m_instruction = SCPIInstruction;
  m_initialized = true;
} catch (...) {
  PassOn(String(ClassName()).append(u".Initialize"));
}

String CReport::GetCommand() const try {
  HuntERR::Check(m_initialized, ErrorNumber::NotInitialized, PropertyNotValidBeforeInitialize);
  return m_command;
} catch (...) {
  PassOn(String(ClassName()).append(u".IReport_GetCommand"));
}

const CreatorRow CtorReport = {
    .Name = u"CtorReport",
    .Specification = Class::Report,
    .ParamCount = Class::Report.ParamCount,
    .Make = [](const Params& Parameters) -> Ref<IObject> {
      auto report = New<CReport>();
      report->Initialize(Parameters[0].ToString(), Parameters[1].ToObject<CInstContainer>(), Parameters[2].ToLong(),
                         Parameters[3].ToString(), Parameters[4].ToString());
      return report;
    },
    .FailureNumber = ErrorNumber::CannotCreate,
    .FailureText = u"Cannot create a report command.",
};

} // namespace portico
