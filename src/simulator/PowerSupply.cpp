#include "simulator/PowerSupply.h"

#include <algorithm>
#include <string>

namespace portico::simulator {
namespace {

constexpr Limits kVolts{0, 30, 0, Quantity::Voltage};
constexpr Limits kAmperes{0, 5, 1, Quantity::Current};
constexpr double kLoadOhms = 10;
constexpr double kNoiseVolts = 0.0005;
constexpr auto kSettlingTime = std::chrono::milliseconds(10);

} // namespace

PowerSupply::PowerSupply(Executor& executor, StatusModel& status, std::uint64_t seed)
    : m_executor(executor), m_status(status), m_random(seed) {
  Reset();
}

void PowerSupply::AddTo(CommandTree& tree) {
  static constexpr Command<PowerSupply> kTable[] = {
      {"[SOURce<1-2>:]VOLTage[:LEVel][:IMMediate]", &PowerSupply::SetVoltage, 1, 1},
      {"[SOURce<1-2>:]VOLTage[:LEVel][:IMMediate]?", &PowerSupply::Voltage, 0, 1},
      {"[SOURce<1-2>:]CURRent[:LEVel][:IMMediate]", &PowerSupply::SetCurrent, 1, 1},
      {"[SOURce<1-2>:]CURRent[:LEVel][:IMMediate]?", &PowerSupply::Current, 0, 1},
      {"OUTPut<1-2>[:STATe]", &PowerSupply::SetState, 1, 1},
      {"OUTPut<1-2>[:STATe]?", &PowerSupply::State},
      {"MEASure<1-2>[:SCALar]:VOLTage[:DC]?", &PowerSupply::MeasureVoltage},
      {"MEASure<1-2>[:SCALar]:CURRent[:DC]?", &PowerSupply::MeasureCurrent},
      {"INSTrument:NSELect", &PowerSupply::Select, 1, 1},
      {"INSTrument:NSELect?", &PowerSupply::Selected},
  };
  tree.Add(kTable, *this);
}

void PowerSupply::Reset() {
  m_outputs.fill({kVolts.standard, kAmperes.standard, false});
  m_selected = 0;
}

PowerSupply::Output& PowerSupply::Of(const Call& call) {
  return m_outputs[call.HasSuffix(0) ? call.Suffix(0) - 1 : m_selected];
}

/// A new setting begins the settling anew.
void PowerSupply::Settle() { m_executor.StartOperation(kSettlingTime, operation::kSettling); }

void PowerSupply::SetVoltage(const Call& call) {
  Of(call).volts = call.Number(0, kVolts);
  Settle();
}

void PowerSupply::Voltage(const Call& call) { m_executor.Respond(FormatReal(call.LimitOr(Of(call).volts, kVolts))); }

void PowerSupply::SetCurrent(const Call& call) {
  Of(call).amperes = call.Number(0, kAmperes);
  Settle();
}

void PowerSupply::Current(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(Of(call).amperes, kAmperes)));
}

void PowerSupply::SetState(const Call& call) {
  Of(call).on = call.Boolean(0);
  Settle();
}

void PowerSupply::State(const Call& call) { m_executor.Respond(FormatBoolean(Of(call).on)); }

/// At the current limit the voltage gives way, which the questionable status tells.
double PowerSupply::MeasuredVolts(const Output& output) {
  const double limited = output.amperes * kLoadOhms;
  if (output.on && output.volts > limited) {
    m_status.Questionable().Set(questionable::kVoltage);
  } else {
    m_status.Questionable().Clear(questionable::kVoltage);
  }
  const double volts = output.on ? std::min(output.volts, limited) : 0;
  return volts + kNoiseVolts * m_random.Noise();
}

void PowerSupply::MeasureVoltage(const Call& call) {
  m_executor.WhenIdle([this, &output = Of(call)] { m_executor.Respond(FormatReal(MeasuredVolts(output))); });
}

void PowerSupply::MeasureCurrent(const Call& call) {
  m_executor.WhenIdle(
      [this, &output = Of(call)] { m_executor.Respond(FormatReal(MeasuredVolts(output) / kLoadOhms)); });
}

void PowerSupply::Select(const Call& call) {
  m_selected = static_cast<std::size_t>(call.Integer(0, 1, static_cast<std::int64_t>(m_outputs.size())) - 1);
}

void PowerSupply::Selected(const Call& /*call*/) { m_executor.Respond(std::to_string(m_selected + 1)); }

} // namespace portico::simulator
