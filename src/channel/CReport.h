#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "framework/shared/CInstContainer.h"
#include "framework/shared/IReport.h"

namespace portico {

/// The report that no command can give: an instruction has ended.
class CReport final : public IReport {
public:
  StringView ClassName() const override { return u"CReport"; }

  /// An empty `Command` raises `InvalidArgument`.
  void Initialize(const String& Command, const Ref<CInstContainer>& Data, std::int32_t ErrorCode,
                  const String& ErrorMessage, const String& SCPIInstruction);

  /// The only property with a guard: it raises `NotInitialized` before `Initialize`.
  String GetCommand() const override;
  /// An instruction has no text of its own.
  String GetData() const override { return {}; }
  String GetErrorMessage() const override { return m_errorMessage; }
  std::int32_t GetErrorCode() const override { return m_errorCode; }
  String GetSCPIInstruction() const override { return m_instruction; }

private:
  String m_command;
  Ref<CInstContainer> m_data;
  std::int32_t m_errorCode = 0;
  String m_errorMessage;
  String m_instruction;
  bool m_initialized = false;
};

namespace Class {

/// The command's name, the instruction, the code, the message and the SCPI instruction. Kept for the contract: an
/// instruction handler makes its report itself, and nothing in the program asks the factory for one.
inline constexpr ClassKey<IReport, StringView, Ref<CInstContainer>, std::int32_t, StringView, StringView> Report{
    u"Report"};

} // namespace Class

extern const CreatorRow CtorReport;

} // namespace portico
