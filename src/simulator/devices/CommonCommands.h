#pragma once

#include "simulator/devices/InstrumentModel.h"
#include "simulator/language/CommandTree.h"
#include "simulator/status/Executor.h"
#include "simulator/status/StatusModel.h"

namespace portico::simulator {

/// The common commands of IEEE 488.2.
class CommonCommands {
public:
  CommonCommands(InstrumentModel& model, Executor& executor, StatusModel& status)
      : m_model(model), m_executor(executor), m_status(status) {}

  void AddTo(CommandTree& tree);

private:
  void ClearStatus(const Call& call);
  void SetEventEnable(const Call& call);
  void EventEnable(const Call& call);
  void EventStatus(const Call& call);
  void Identification(const Call& call);
  void OperationComplete(const Call& call);
  void AwaitCompletion(const Call& call);
  void Options(const Call& call);
  void Recall(const Call& call);
  void Reset(const Call& call);
  void Save(const Call& call);
  void SetServiceEnable(const Call& call);
  void ServiceEnable(const Call& call);
  void StatusByte(const Call& call);
  void Trigger(const Call& call);
  void SelfTest(const Call& call);
  void Wait(const Call& call);

  InstrumentModel& m_model;
  Executor& m_executor;
  StatusModel& m_status;
};

} // namespace portico::simulator
