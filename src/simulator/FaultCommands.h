#pragma once

#include "simulator/CommandTree.h"
#include "simulator/Executor.h"
#include "simulator/Random.h"
#include "simulator/ResponseQueue.h"
#include "simulator/StatusModel.h"

#include <cstdint>

namespace portico::simulator {

/// The SIMulator subsystem, which no real instrument has: it makes every device misbehave, for tests of clients.
class FaultCommands {
public:
  FaultCommands(Executor& executor, StatusModel& status, ResponseQueue& responses, std::uint64_t seed)
      : executor_(executor), status_(status), responses_(responses), random_(seed) {}

  void AddTo(CommandTree& tree);

private:
  void Delay(const Call& call);
  void Silent(const Call& call);
  void Close(const Call& call);
  void Endless(const Call& call);
  void Garbage(const Call& call);
  void Length(const Call& call);
  void Error(const Call& call);

  Executor& executor_;
  StatusModel& status_;
  ResponseQueue& responses_;
  Random random_;
};

} // namespace portico::simulator
