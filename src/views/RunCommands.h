#pragma once

#include "framework/shared/ICommand.h"
#include "framework/shared/IReport.h"
#include "instructions/IInstProcessor.h"
#include "views/CInstructionRunner.h"

#include <memory>

namespace portico {

// Members raise 0x80041460 before `Initialize`.

/// Hands one instruction to the instruction processor.
class CStep final : public ICommand {
public:
  StringView ClassName() const override { return u"CStep"; }
  void Initialize(const Ref<CInstContainer>& Instruction);
  /// A processor that declines raises 17.
  void Execute() override;

private:
  Ref<CInstContainer> m_instruction;
  bool m_initialized = false;
};

/// Ends the second engine's run: "RunningMode" becomes "Off". No configuration server raises 424.
class CStop final : public ICommand {
public:
  StringView ClassName() const override { return u"CStop"; }
  void Initialize() { m_initialized = true; }
  void Execute() override;

private:
  bool m_initialized = false;
};

/// Drives an instruction runner until "RunningMode" is "Off", posing as a report that tells it to go on. The mode
/// "Step" ends after one instruction; any other but "Off" runs on.
class CRun final : public ICommand, public IReport, public std::enable_shared_from_this<CRun> {
public:
  CRun() = default;
  ~CRun() override;
  StringView ClassName() const override { return u"CRun"; }
  /// No runner raises 5.
  void Initialize(const Ref<CInstructionRunner>& Runner, const String& Mode);
  /// No configuration server raises 424.
  void Execute() override;

  String GetCommand() const override { return String(ClassName()); }
  String GetData() const override { return {}; }
  String GetErrorMessage() const override { return {}; }
  std::int32_t GetErrorCode() const override { return ErrorNumber::SendNextInstruction; }
  String GetSCPIInstruction() const override { return {}; }

private:
  void m_Runner_ReadyForInstruction() {}

  Ref<CInstructionRunner> m_runner;
  Event<>::Connection m_ready = 0;
  String m_mode;
  bool m_initialized = false;
};

/// "Step": the instruction.
extern const CreatorRow CtorStep;
/// "Run": the runner and the mode.
extern const CreatorRow CtorRun;
/// "Stop".
extern const CreatorRow CtorStop;

} // namespace portico
