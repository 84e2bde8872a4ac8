#include "simulator/devices/PowerSupply.h"

#include "scpi/ScpiError.h"
#include "simulator/language/ResponseFormat.h"

#include <algorithm>
#include <string>

namespace portico::simulator {
namespace {

constexpr Limits Volts{0, 30, 0, Quantity::Voltage};
constexpr Limits Amperes{0, 5, 1, Quantity::Current};
constexpr Limits Protections[] = {{0, 33, 33, Quantity::Voltage}, {0, 5.5, 5.5, Quantity::Current}};
constexpr std::uint16_t TripBits[] = {QuestionableBit::Overvoltage, QuestionableBit::Overcurrent};
constexpr std::string_view OutputNames[] = {"CH1", "CH2"};
constexpr Limits OutputNumbers{1, 2, 1};
constexpr double LoadOhms = 10;
constexpr double NoiseVolts = 0.0005;
constexpr auto SettlingTime = std::chrono::milliseconds(10);

/// At the current limit the voltage gives way.
double LimitedVolts(const PowerSupplySettings::Output& output) {
  return output.On ? std::min(output.Volts, output.Amperes * LoadOhms) : 0;
}

} // namespace

void PowerSupply::AddTo(CommandTree& tree) {
  using Self = PowerSupply;
  static constexpr Command<Self> table[] = {
      {"[SOURce<1-2>:]VOLTage[:LEVel][:IMMediate]", &Self::SetVoltage, 1, 1},
      {"[SOURce<1-2>:]VOLTage[:LEVel][:IMMediate]?", &Self::Voltage, 0, 1},
      {"[SOURce<1-2>:]VOLTage:PROTection[:LEVel]", &Self::SetProtection<OfVoltage>, 1, 1},
      {"[SOURce<1-2>:]VOLTage:PROTection[:LEVel]?", &Self::Protection<OfVoltage>, 0, 1},
      {"[SOURce<1-2>:]VOLTage:PROTection:STATe", &Self::SetProtectionState<OfVoltage>, 1, 1},
      {"[SOURce<1-2>:]VOLTage:PROTection:STATe?", &Self::ProtectionState<OfVoltage>},
      {"[SOURce<1-2>:]VOLTage:PROTection:TRIPped?", &Self::Tripped<OfVoltage>},
      {"[SOURce<1-2>:]VOLTage:PROTection:CLEar", &Self::ClearTrip<OfVoltage>},
      {"[SOURce<1-2>:]CURRent[:LEVel][:IMMediate]", &Self::SetCurrent, 1, 1},
      {"[SOURce<1-2>:]CURRent[:LEVel][:IMMediate]?", &Self::Current, 0, 1},
      {"[SOURce<1-2>:]CURRent:PROTection[:LEVel]", &Self::SetProtection<OfCurrent>, 1, 1},
      {"[SOURce<1-2>:]CURRent:PROTection[:LEVel]?", &Self::Protection<OfCurrent>, 0, 1},
      {"[SOURce<1-2>:]CURRent:PROTection:STATe", &Self::SetProtectionState<OfCurrent>, 1, 1},
      {"[SOURce<1-2>:]CURRent:PROTection:STATe?", &Self::ProtectionState<OfCurrent>},
      {"[SOURce<1-2>:]CURRent:PROTection:TRIPped?", &Self::Tripped<OfCurrent>},
      {"[SOURce<1-2>:]CURRent:PROTection:CLEar", &Self::ClearTrip<OfCurrent>},
      {"APPLy", &Self::Apply, 1, 3},
      {"APPLy?", &Self::Applied, 0, 1},
      {"OUTPut<1-2>[:STATe]", &Self::SetState, 1, 1},
      {"OUTPut<1-2>[:STATe]?", &Self::State},
      {"MEASure<1-2>[:SCALar]:VOLTage[:DC]?", &Self::MeasureVoltage},
      {"MEASure<1-2>[:SCALar]:CURRent[:DC]?", &Self::MeasureCurrent},
      {"INSTrument:NSELect", &Self::SelectNumber, 1, 1},
      {"INSTrument:NSELect?", &Self::SelectedNumber, 0, 1},
      {"INSTrument[:SELect]", &Self::Select, 1, 1},
      {"INSTrument[:SELect]?", &Self::Selected},
  };
  tree.Add(table, *this);
}

void PowerSupply::Reset() {
  m_settings = {};
  m_tripped = {};
  ShowTrips();
}

std::size_t PowerSupply::IndexOf(const Call& call) const {
  return call.HasSuffix(0) ? call.Suffix(0) - 1 : m_settings.Selected;
}

/// A new setting begins the settling anew.
void PowerSupply::Settle() {
  for (std::size_t i = 0; i < m_settings.Outputs.size(); ++i) Protect(i);
  ShowTrips();
  m_executor.StartOperation(SettlingTime, OperationBit::Settling);
}

void PowerSupply::Protect(std::size_t index) {
  Output& output = m_settings.Outputs[index];
  const double volts = LimitedVolts(output);
  const double found[] = {volts, volts / LoadOhms};
  for (std::size_t kind = 0; kind < KindCount; ++kind) {
    const auto& protection = output.Protections[kind];
    if (protection.On && found[kind] > protection.Level) m_tripped[index][kind] = true;
    if (m_tripped[index][kind]) output.On = false;
  }
}

void PowerSupply::ShowTrips() {
  for (std::size_t kind = 0; kind < KindCount; ++kind) {
    if (m_tripped[0][kind] || m_tripped[1][kind]) {
      m_status.Questionable().Set(TripBits[kind]);
    } else {
      m_status.Questionable().Clear(TripBits[kind]);
    }
  }
}

void PowerSupply::SetVoltage(const Call& call) {
  Of(call).Volts = call.Number(0, Volts);
  Settle();
}

void PowerSupply::Voltage(const Call& call) { m_executor.Respond(FormatReal(call.LimitOr(Of(call).Volts, Volts))); }

void PowerSupply::SetCurrent(const Call& call) {
  Of(call).Amperes = call.Number(0, Amperes);
  Settle();
}

void PowerSupply::Current(const Call& call) { m_executor.Respond(FormatReal(call.LimitOr(Of(call).Amperes, Amperes))); }

/// `APPLy [CH1|CH2,]<volts>[,<amperes>]`: all or nothing.
void PowerSupply::Apply(const Call& call) {
  const bool named = call.IsKeyword(0, "CH1") || call.IsKeyword(0, "CH2");
  const std::size_t first = named ? 1 : 0;
  if (call.Count() <= first) throw scpi::ScpiError(scpi::ErrorCode::MissingParameter);
  if (call.Count() > first + 2) throw scpi::ScpiError(scpi::ErrorCode::ParameterNotAllowed);
  const std::size_t selected = named ? call.Keyword(0, OutputNames) : m_settings.Selected;
  Output& output = m_settings.Outputs[selected];
  const double volts = call.Number(first, Volts);
  const double amperes = call.Count() > first + 1 ? call.Number(first + 1, Amperes) : output.Amperes;
  output.Volts = volts;
  output.Amperes = amperes;
  m_settings.Selected = selected;
  Settle();
}

void PowerSupply::Applied(const Call& call) {
  const std::size_t index = call.Count() > 0 ? call.Keyword(0, OutputNames) : m_settings.Selected;
  const Output& output = m_settings.Outputs[index];
  m_executor.Respond(FormatString(FormatReals(std::array{output.Volts, output.Amperes})));
}

void PowerSupply::SetState(const Call& call) {
  const bool on = call.Boolean(0);
  const auto& tripped = m_tripped[IndexOf(call)];
  if (on && (tripped[OfVoltage] || tripped[OfCurrent])) throw scpi::ScpiError(scpi::ErrorCode::SettingsConflict);
  Of(call).On = on;
  Settle();
}

void PowerSupply::State(const Call& call) { m_executor.Respond(FormatBoolean(Of(call).On)); }

/// That the voltage gives way is told by the questionable status.
double PowerSupply::MeasuredVolts(const Output& output) {
  const double volts = LimitedVolts(output);
  if (output.On && volts < output.Volts) {
    m_status.Questionable().Set(QuestionableBit::Voltage);
  } else {
    m_status.Questionable().Clear(QuestionableBit::Voltage);
  }
  return volts + NoiseVolts * m_random.Noise();
}

void PowerSupply::MeasureVoltage(const Call& call) {
  m_executor.WhenIdle([this, &output = Of(call)] { m_executor.Respond(FormatReal(MeasuredVolts(output))); });
}

void PowerSupply::MeasureCurrent(const Call& call) {
  m_executor.WhenIdle([this, &output = Of(call)] { m_executor.Respond(FormatReal(MeasuredVolts(output) / LoadOhms)); });
}

void PowerSupply::SelectNumber(const Call& call) {
  m_settings.Selected = static_cast<std::size_t>(call.Whole(0, OutputNumbers) - 1);
}

void PowerSupply::SelectedNumber(const Call& call) {
  const auto number = static_cast<std::int64_t>(m_settings.Selected + 1);
  m_executor.Respond(std::to_string(call.WholeOr(number, OutputNumbers)));
}

void PowerSupply::Select(const Call& call) { m_settings.Selected = call.Keyword(0, OutputNames); }

void PowerSupply::Selected(const Call& /*call*/) { m_executor.Respond(OutputNames[m_settings.Selected]); }

template <PowerSupply::Kind kind>
void PowerSupply::SetProtection(const Call& call) {
  Of(call).Protections[kind].Level = call.Number(0, Protections[kind]);
  Settle();
}

template <PowerSupply::Kind kind>
void PowerSupply::Protection(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(Of(call).Protections[kind].Level, Protections[kind])));
}

template <PowerSupply::Kind kind>
void PowerSupply::SetProtectionState(const Call& call) {
  Of(call).Protections[kind].On = call.Boolean(0);
  Settle();
}

template <PowerSupply::Kind kind>
void PowerSupply::ProtectionState(const Call& call) {
  m_executor.Respond(FormatBoolean(Of(call).Protections[kind].On));
}

template <PowerSupply::Kind kind>
void PowerSupply::Tripped(const Call& call) {
  m_executor.Respond(FormatBoolean(m_tripped[IndexOf(call)][kind]));
}

/// The output stays off until it is switched on again.
template <PowerSupply::Kind kind>
void PowerSupply::ClearTrip(const Call& call) {
  m_tripped[IndexOf(call)][kind] = false;
  ShowTrips();
}

} // namespace portico::simulator
