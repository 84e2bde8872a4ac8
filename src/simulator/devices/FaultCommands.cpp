#include "simulator/devices/FaultCommands.h"

#include "scpi/ScpiError.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace portico::simulator {
namespace {

constexpr Limits AnswerDelaySeconds{0, 3600, 0, Quantity::Time};
constexpr Limits Chance{0, 1, 0};
constexpr std::int64_t DefaultGarbageBytes = 256;
constexpr std::int64_t MostNumber = 4294967295;
constexpr std::int64_t LongestBlock = 999'999'999; // as many as nine digits tell
constexpr std::int64_t MostBytes = MessageExchange::LongestResponse - 1;

/// The faults of answers, in the order of their names.
constexpr std::array Faults = {AnswerFault::Late, AnswerFault::Lost, AnswerFault::Endless, AnswerFault::Stray,
                               AnswerFault::Half, AnswerFault::Drop, AnswerFault::Number};
constexpr std::array<std::string_view, Faults.size()> FaultNames = {"LATE", "LOST", "ENDLess", "STRay",
                                                                    "HALF", "DROP", "NUMBer"};

Executor::Duration Time(const Call& call) {
  return std::chrono::duration_cast<Executor::Duration>(
      std::chrono::duration<double>(call.Number(0, AnswerDelaySeconds)));
}

} // namespace

void FaultCommands::AddTo(CommandTree& tree) {
  static constexpr Command<FaultCommands> table[] = {
      {"SIMulator:DELay", &FaultCommands::Delay, 1, 1},
      {"SIMulator:SILent", &FaultCommands::Silent, 1, 1},
      {"SIMulator:CLOSe", &FaultCommands::Close},
      {"SIMulator:ENDLess?", &FaultCommands::Endless},
      {"SIMulator:GARBage?", &FaultCommands::Garbage, 0, 1},
      {"SIMulator:LENGth?", &FaultCommands::Length, 1, 1},
      {"SIMulator:BLOCk?", &FaultCommands::Block, 1, 1},
      {"SIMulator:ERRor", &FaultCommands::Error, 1, 1},
      {"SIMulator:ECHO?", &FaultCommands::Echo, 1, 1},
      {"SIMulator:NEXT", &FaultCommands::Next, 1, 1},
      {"SIMulator:RATE", &FaultCommands::Rate, 1, 1 + FaultNames.size()},
      {"SIMulator:SEED", &FaultCommands::Seed, 1, 1},
      {"SIMulator:COUNt?", &FaultCommands::Count},
      {"SIMulator:LATeness", &FaultCommands::Lateness, 1, 1},
      {"SIMulator:ACCept", &FaultCommands::Accept, 1, 1},
      {"SIMulator:REFuse", &FaultCommands::Refuse, 1, 1},
  };
  tree.Add(table, *this);
}

void FaultCommands::Delay(const Call& call) { m_executor.Faults().Delay = Time(call); }

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

void FaultCommands::Block(const Call& call) {
  m_executor.Current().RespondBlock(static_cast<std::uint64_t>(call.Integer(0, 0, LongestBlock)));
}

void FaultCommands::Error(const Call& call) {
  const auto code = static_cast<scpi::ErrorCode>(call.Integer(0, -32768, 32767));
  if (code == scpi::ErrorCode::NoError || scpi::ErrorText(code).empty()) {
    throw scpi::ScpiError(scpi::ErrorCode::IllegalParameterValue);
  }
  m_status.Raise(code);
}

void FaultCommands::Echo(const Call& call) { m_executor.Respond(std::to_string(call.Integer(0, 0, MostNumber))); }

void FaultCommands::Next(const Call& call) { m_executor.Faults().Next(Faults[call.Keyword(0, FaultNames)]); }

void FaultCommands::Rate(const Call& call) {
  const double rate = call.Number(0, Chance);
  std::vector<AnswerFault> faults;
  for (std::size_t i = 1; i < call.Count(); ++i) faults.push_back(Faults[call.Keyword(i, FaultNames)]);
  if (faults.empty()) faults.assign(Faults.begin(), Faults.end());
  m_executor.Faults().SetRate(rate, std::move(faults));
}

void FaultCommands::Seed(const Call& call) {
  m_executor.Faults().Seed(static_cast<std::uint64_t>(call.Integer(0, 0, MostNumber)));
}

void FaultCommands::Count(const Call& /*call*/) { m_executor.Respond(std::to_string(m_executor.Faults().Count())); }

void FaultCommands::Lateness(const Call& call) { m_executor.Faults().Lateness = Time(call); }

void FaultCommands::Accept(const Call& call) { m_executor.Faults().AcceptDelay = Time(call); }

void FaultCommands::Refuse(const Call& call) { m_executor.Faults().LocksRefused = call.Boolean(0); }

} // namespace portico::simulator
