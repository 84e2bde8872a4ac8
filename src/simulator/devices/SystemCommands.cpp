#include "simulator/devices/SystemCommands.h"

#include "simulator/language/ResponseFormat.h"

#include <string>

namespace portico::simulator {

void SystemCommands::AddTo(CommandTree& tree) {
  using Self = SystemCommands;
  constexpr RegisterOf operation = &StatusModel::Operation;
  constexpr RegisterOf questionable = &StatusModel::Questionable;
  static constexpr Command<Self> table[] = {
      {"SYSTem:ERRor[:NEXT]?", &Self::NextError},
      {"SYSTem:ERRor:ALL?", &Self::AllErrors},
      {"SYSTem:ERRor:COUNt?", &Self::ErrorCount},
      {"SYSTem:VERSion?", &Self::Version},
      {"SYSTem:HELP:HEADers?", &Self::Headers},
      {"SYSTem:BEEPer[:IMMediate]", &Self::Beep, 0, 3},
      {"SYSTem:BEEPer:STATe", &Self::SetBeeper, 1, 1},
      {"SYSTem:BEEPer:STATe?", &Self::Beeper},
      {"STATus:PRESet", &Self::PresetStatus},
      {"STATus:OPERation[:EVENt]?", &Self::Event<operation>},
      {"STATus:OPERation:CONDition?", &Self::Condition<operation>},
      {"STATus:OPERation:ENABle", &Self::SetEnable<operation>, 1, 1},
      {"STATus:OPERation:ENABle?", &Self::Enable<operation>},
      {"STATus:QUEStionable[:EVENt]?", &Self::Event<questionable>},
      {"STATus:QUEStionable:CONDition?", &Self::Condition<questionable>},
      {"STATus:QUEStionable:ENABle", &Self::SetEnable<questionable>, 1, 1},
      {"STATus:QUEStionable:ENABle?", &Self::Enable<questionable>},
  };
  tree.Add(table, *this);
}

void SystemCommands::NextError(const Call& /*call*/) { m_executor.Respond(m_status.Errors().Pop()); }

void SystemCommands::AllErrors(const Call& /*call*/) { m_executor.Respond(m_status.Errors().PopAll()); }

void SystemCommands::ErrorCount(const Call& /*call*/) { m_executor.Respond(std::to_string(m_status.Errors().Size())); }

void SystemCommands::Version(const Call& /*call*/) { m_executor.Respond("1999.0"); }

void SystemCommands::Headers(const Call& /*call*/) { m_executor.Respond(FormatBlock(m_commands.Headers())); }

/// Nobody hears it.
void SystemCommands::Beep(const Call& call) {
  static constexpr Limits pitchLengthVolume[] = {
      {20, 20000, 1000, Quantity::Frequency}, {0, 60, 0.1, Quantity::Time}, {0, 1, 1}};
  for (std::size_t i = 0; i < call.Count(); ++i) call.Number(i, pitchLengthVolume[i]);
}

void SystemCommands::SetBeeper(const Call& call) { m_beeperOn = call.Boolean(0); }

void SystemCommands::Beeper(const Call& /*call*/) { m_executor.Respond(FormatBoolean(m_beeperOn)); }

void SystemCommands::PresetStatus(const Call& /*call*/) { m_status.Preset(); }

template <SystemCommands::RegisterOf which>
void SystemCommands::Event(const Call& /*call*/) {
  m_executor.Respond(std::to_string((m_status.*which)().TakeEvent()));
}

template <SystemCommands::RegisterOf which>
void SystemCommands::Condition(const Call& /*call*/) {
  m_executor.Respond(std::to_string((m_status.*which)().Condition()));
}

template <SystemCommands::RegisterOf which>
void SystemCommands::SetEnable(const Call& call) {
  (m_status.*which)().SetEnable(static_cast<std::uint16_t>(call.Integer(0, 0, 65535)));
}

template <SystemCommands::RegisterOf which>
void SystemCommands::Enable(const Call& /*call*/) {
  m_executor.Respond(std::to_string((m_status.*which)().Enable()));
}

} // namespace portico::simulator
