#include "simulator/devices/CommonCommands.h"

#include "scpi/ScpiError.h"

#include <string>

namespace portico::simulator {
namespace {

constexpr auto ResetTime = std::chrono::milliseconds(2);
constexpr auto SelfTestTime = std::chrono::milliseconds(5);

/// Of the memory of settings.
std::size_t Place(const Call& call) {
  return static_cast<std::size_t>(call.Integer(0, 0, InstrumentModel::Places - 1));
}

} // namespace

void CommonCommands::AddTo(CommandTree& tree) {
  static constexpr Command<CommonCommands> table[] = {
      {"*CLS", &CommonCommands::ClearStatus},
      {"*ESE", &CommonCommands::SetEventEnable, 1, 1},
      {"*ESE?", &CommonCommands::EventEnable},
      {"*ESR?", &CommonCommands::EventStatus},
      {"*IDN?", &CommonCommands::Identification},
      {"*OPC", &CommonCommands::OperationComplete},
      {"*OPC?", &CommonCommands::AwaitCompletion},
      {"*OPT?", &CommonCommands::Options},
      {"*RCL", &CommonCommands::Recall, 1, 1},
      {"*RST", &CommonCommands::Reset},
      {"*SAV", &CommonCommands::Save, 1, 1},
      {"*SRE", &CommonCommands::SetServiceEnable, 1, 1},
      {"*SRE?", &CommonCommands::ServiceEnable},
      {"*STB?", &CommonCommands::StatusByte},
      {"*TRG", &CommonCommands::Trigger},
      {"*TST?", &CommonCommands::SelfTest},
      {"*WAI", &CommonCommands::Wait},
  };
  tree.Add(table, *this);
}

void CommonCommands::ClearStatus(const Call& /*call*/) {
  m_status.Clear();
  m_executor.ForgetCompletion();
}

void CommonCommands::SetEventEnable(const Call& call) {
  m_status.SetEventEnable(static_cast<std::uint8_t>(call.Integer(0, 0, 255)));
}

void CommonCommands::EventEnable(const Call& /*call*/) { m_executor.Respond(std::to_string(m_status.EventEnable())); }

void CommonCommands::EventStatus(const Call& /*call*/) { m_executor.Respond(std::to_string(m_status.TakeEvent())); }

void CommonCommands::Identification(const Call& /*call*/) { m_executor.Respond(m_model.Identification()); }

void CommonCommands::OperationComplete(const Call& /*call*/) { m_executor.ReportCompletion(); }

void CommonCommands::AwaitCompletion(const Call& /*call*/) {
  m_executor.WhenIdle([this] { m_executor.Respond("1"); });
}

void CommonCommands::Options(const Call& /*call*/) { m_executor.Respond("0"); }

void CommonCommands::Save(const Call& call) { m_model.Save(Place(call)); }

void CommonCommands::Recall(const Call& call) {
  const std::size_t place = Place(call);
  if (!m_model.HasSaved(place)) throw scpi::ScpiError(scpi::ErrorCode::IllegalParameterValue);
  m_executor.Supersede([this, place] { m_model.Recall(place); });
}

void CommonCommands::Trigger(const Call& /*call*/) { m_model.Trigger(); }

void CommonCommands::Reset(const Call& /*call*/) {
  m_executor.ForgetCompletion();
  m_executor.CancelOperation();
  m_model.Reset();
  m_executor.StartOperation(ResetTime, 0);
  m_executor.WhenIdle([] {});
}

void CommonCommands::SetServiceEnable(const Call& call) {
  m_status.SetServiceEnable(static_cast<std::uint8_t>(call.Integer(0, 0, 255)));
}

void CommonCommands::ServiceEnable(const Call& /*call*/) {
  m_executor.Respond(std::to_string(m_status.ServiceEnable()));
}

void CommonCommands::StatusByte(const Call& /*call*/) {
  m_executor.Respond(std::to_string(m_status.StatusByte(m_executor.Current().MessageAvailable())));
}

void CommonCommands::SelfTest(const Call& /*call*/) {
  m_executor.WhenIdle([this] {
    m_executor.StartOperation(SelfTestTime, 0);
    m_executor.WhenIdle([this] { m_executor.Respond("0"); });
  });
}

void CommonCommands::Wait(const Call& /*call*/) {
  m_executor.WhenIdle([] {});
}

} // namespace portico::simulator
