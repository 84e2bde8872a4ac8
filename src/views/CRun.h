#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/objects/Creator.h"
#include "framework/shared/IReport.h"
#include "framework/shared/UserCommand.h"
#include "views/CInstructionRunner.h"

#include <memory>

namespace portico {

/// Drives an instruction runner until "RunningMode" is "Off", posing as a report that tells it to go on. The mode
/// "Step" ends after one instruction; any other but "Off" runs on. Part of the contract; nothing in the program asks
/// for it.
class CRun final : public UserCommand, public IReport, public std::enable_shared_from_this<CRun> {
public:
  CRun() = default;
  ~CRun() override;
  StringView ClassName() const override { return u"CRun"; }
  /// No runner raises `InvalidArgument`.
  void Initialize(const Ref<CInstructionRunner>& Runner, const String& Mode);

  String GetCommand() const override { return String(ClassName()); }
  String GetData() const override { return {}; }
  String GetErrorMessage() const override { return {}; }
  std::int32_t GetErrorCode() const override { return ErrorNumber::SendNextInstruction; }
  String GetSCPIInstruction() const override { return {}; }

private:
  /// No configuration server raises `ObjectRequired`.
  void Act() override;
  void m_Runner_ReadyForInstruction() {}

  Ref<CInstructionRunner> m_runner;
  Event<>::Connection m_ready = 0;
  String m_mode;
};

/// Makes `Class::Run`.
extern const CreatorRow CtorRun;

} // namespace portico
