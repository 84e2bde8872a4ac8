#include "simulator/devices/FaultCommands.h"

#include "simulator/language/ScpiError.h"

#include <string>

namespace portico::simulator {
namespace {

constexpr Limits DelaySeconds{0, 3600, 0, Quantity::Time};
constexpr std::int64_t DefaultGarbageBytes = 256;
constexpr std::int64_t MostBytes = MessageExchange::LongestResponse - 1;

} // namespace

void FaultCommands::AddTo(CommandTree& tree) {
  static constexpr Command<FaultCommands> table[] = {
      {"SIMulator:DELay", &FaultCommands::Delay, 1, 1},
      {"SIMulator:SILent", &FaultCommands::Silent, 1, 1},
      {"SIMulator:CLOSe", &FaultCommands::Close},
      {"SIMulator:ENDLess?", &FaultCommands::Endless},
      {"SIMulator:GARBage?", &FaultCommands::Garbage, 0, 1},
      {"SIMulator:LENGth?", &FaultCommands::Length, 1, 1},
      {"SIMulator:ERRor", &FaultCommands::Error, 1, 1},
  };
  tree.Add(table, *this);
}

void FaultCommands::Delay(const Call& call) {
  const std::chrono::duration<double> delay(call.Number(0, DelaySeconds));
  m_executor.Faults().Delay = std::chrono::duration_cast<Executor::Duration>(delay);
}

void FaultCommands::Silent(const Call& call) { m_executor.Faults().Silent = call.Boolean(0); }

void FaultCommands::Close(const Call& /*call*/) { m_executor.Current().Halt(); }

void FaultCommands::Endless(const Call& /*call*/) {
  m_executor.Current().MakeEndless();
  m_executor.Respond("7");
}

void FaultCommands::Garbage(const Call& call) {
  const std::int64_t count = call.Count() == 0 ? DefaultGarbageBytes : call.Integer(0, 0, MostBytes);
  std::string bytes(static_cast<std::size_t>(count), '\0');
  for (char& byte : bytes) byte = static_cast<char>(m_random.Next() & 0xFFU);
  m_executor.Respond(bytes);
}

void FaultCommands::Length(const Call& call) {
  m_executor.Respond(std::string(static_cast<std::size_t>(call.Integer(0, 0, MostBytes)), '5'));
}

void FaultCommands::Error(const Call& call) {
  const auto code = static_cast<ErrorCode>(call.Integer(0, -32768, 32767));
  if (code == ErrorCode::NoError || ErrorText(code).empty()) throw ScpiError(ErrorCode::IllegalParameterValue);
  m_status.Raise(code);
}

} // namespace portico::simulator
