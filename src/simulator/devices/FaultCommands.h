#pragma once

#include "simulator/language/CommandTree.h"
#include "simulator/status/Executor.h"
#include "simulator/status/Random.h"
#include "simulator/status/StatusModel.h"

#include <cstdint>

namespace portico::simulator {

/// The SIMulator subsystem, which no real instrument has: it makes every device misbehave, for tests of clients.
class FaultCommands {
public:
  FaultCommands(Executor& executor, StatusModel& status, std::uint64_t seed)
      : m_executor(executor), m_status(status), m_random(seed) {}

  void AddTo(CommandTree& tree);

private:
  void Delay(const Call& call);
  void Silent(const Call& call);
  void Close(const Call& call);
  void Endless(const Call& call);
  void Garbage(const Call& call);
  void Length(const Call& call);
  void Block(const Call& call);
  void Error(const Call& call);
  void Echo(const Call& call);
  void Next(const Call& call);
  void Rate(const Call& call);
  void Seed(const Call& call);
  void Count(const Call& call);
  void Lateness(const Call& call);
  void Accept(const Call& call);
  void Refuse(const Call& call);

  Executor& m_executor;
  StatusModel& m_status;
  Random m_random;
};

} // namespace portico::simulator
