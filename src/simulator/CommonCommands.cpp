#include "simulator/CommonCommands.h"

#include <string>

namespace portico::simulator {
namespace {

constexpr auto kResetTime = std::chrono::milliseconds(2);
constexpr auto kSelfTestTime = std::chrono::milliseconds(5);

} // namespace

void CommonCommands::AddTo(CommandTree& tree) {
  static constexpr Command<CommonCommands> kTable[] = {
      {"*CLS", &CommonCommands::ClearStatus},
      {"*ESE", &CommonCommands::SetEventEnable, 1, 1},
      {"*ESE?", &CommonCommands::EventEnable},
      {"*ESR?", &CommonCommands::EventStatus},
      {"*IDN?", &CommonCommands::Identification},
      {"*OPC", &CommonCommands::OperationComplete},
      {"*OPC?", &CommonCommands::AwaitCompletion},
      {"*RST", &CommonCommands::Reset},
      {"*SRE", &CommonCommands::SetServiceEnable, 1, 1},
      {"*SRE?", &CommonCommands::ServiceEnable},
      {"*STB?", &CommonCommands::StatusByte},
      {"*TST?", &CommonCommands::SelfTest},
      {"*WAI", &CommonCommands::Wait},
  };
  tree.Add(kTable, *this);
}

void CommonCommands::ClearStatus(const Call& /*call*/) {
  status_.Clear();
  executor_.ForgetCompletion();
}

void CommonCommands::SetEventEnable(const Call& call) {
  status_.SetEventEnable(static_cast<std::uint8_t>(call.Integer(0, 0, 255)));
}

void CommonCommands::EventEnable(const Call& /*call*/) { executor_.Respond(std::to_string(status_.EventEnable())); }

void CommonCommands::EventStatus(const Call& /*call*/) { executor_.Respond(std::to_string(status_.TakeEvent())); }

void CommonCommands::Identification(const Call& /*call*/) { executor_.Respond(device_.Identification()); }

void CommonCommands::OperationComplete(const Call& /*call*/) { executor_.ReportCompletion(); }

void CommonCommands::AwaitCompletion(const Call& /*call*/) {
  executor_.WhenIdle([this] { executor_.Respond("1"); });
}

void CommonCommands::Reset(const Call& /*call*/) {
  executor_.ForgetCompletion();
  executor_.CancelOperation();
  device_.Reset();
  executor_.StartOperation(kResetTime, 0);
  executor_.WhenIdle([] {});
}

void CommonCommands::SetServiceEnable(const Call& call) {
  status_.SetServiceEnable(static_cast<std::uint8_t>(call.Integer(0, 0, 255)));
}

void CommonCommands::ServiceEnable(const Call& /*call*/) { executor_.Respond(std::to_string(status_.ServiceEnable())); }

void CommonCommands::StatusByte(const Call& /*call*/) {
  executor_.Respond(std::to_string(status_.StatusByte(executor_.MessageAvailable())));
}

void CommonCommands::SelfTest(const Call& /*call*/) {
  executor_.WhenIdle([this] {
    executor_.StartOperation(kSelfTestTime, 0);
    executor_.WhenIdle([this] { executor_.Respond("0"); });
  });
}

void CommonCommands::Wait(const Call& /*call*/) {
  executor_.WhenIdle([] {});
}

} // namespace portico::simulator
