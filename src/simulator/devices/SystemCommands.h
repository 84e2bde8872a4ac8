#pragma once

#include "simulator/language/CommandTree.h"
#include "simulator/status/Executor.h"
#include "simulator/status/StatusModel.h"

namespace portico::simulator {

/// The SYSTem and STATus subsystems that SCPI-99 asks of every instrument.
class SystemCommands {
public:
  /// `commands` are all that the instrument knows, of which it tells. Everything must outlive this.
  SystemCommands(Executor& executor, StatusModel& status, const CommandTree& commands)
      : m_executor(executor), m_status(status), m_commands(commands) {}

  void AddTo(CommandTree& tree);

private:
  using RegisterOf = StatusRegister& (StatusModel::*)();

  void NextError(const Call& call);
  void AllErrors(const Call& call);
  void ErrorCount(const Call& call);
  void Version(const Call& call);
  void Headers(const Call& call);
  void Beep(const Call& call);
  void SetBeeper(const Call& call);
  void Beeper(const Call& call);
  void PresetStatus(const Call& call);

  template <RegisterOf which>
  void Event(const Call& call);
  template <RegisterOf which>
  void Condition(const Call& call);
  template <RegisterOf which>
  void SetEnable(const Call& call);
  template <RegisterOf which>
  void Enable(const Call& call);

  Executor& m_executor;
  StatusModel& m_status;
  const CommandTree& m_commands;
  bool m_beeperOn = true;
};

} // namespace portico::simulator
