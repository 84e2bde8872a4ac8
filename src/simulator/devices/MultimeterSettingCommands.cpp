#include "simulator/devices/MultimeterSettingCommands.h"

#include "scpi/Mnemonic.h"
#include "simulator/language/ResponseFormat.h"

#include <string>

namespace portico::simulator {
namespace {

constexpr Limits CycleLimits{0.02, 100, 1};
constexpr Limits ApertureSeconds{0.01, 1, 0.1, Quantity::Time};
constexpr Limits TriggerDelaySeconds{0, 3600, 0, Quantity::Time};
constexpr Limits SampleLimits{1, 1000, 1};
constexpr Limits TriggerLimits{1, 10, 1};
constexpr std::string_view TriggerSources[] = {"IMMediate", "BUS", "EXTernal"};
constexpr std::string_view TemperatureUnits[] = {"C", "F", "K"};

} // namespace

void MultimeterSettingCommands::AddTo(CommandTree& tree) {
  using Self = MultimeterSettingCommands;
  static constexpr Command<Self> table[] = {
      {"[SENSe:]FUNCtion[:ON]", &Self::SetFunction, 1, 1},
      {"[SENSe:]FUNCtion[:ON]?", &Self::SenseFunction},
      {"[SENSe:]VOLTage[:DC]:RANGe[:UPPer]", &Self::SetRange<Measurand::DcVoltage>, 1, 1},
      {"[SENSe:]VOLTage[:DC]:RANGe[:UPPer]?", &Self::Range<Measurand::DcVoltage>, 0, 1},
      {"[SENSe:]VOLTage[:DC]:RANGe:AUTO", &Self::SetAutoRange<Measurand::DcVoltage>, 1, 1},
      {"[SENSe:]VOLTage[:DC]:RANGe:AUTO?", &Self::AutoRange<Measurand::DcVoltage>},
      {"[SENSe:]VOLTage[:DC]:NPLCycles", &Self::SetCycles<Measurand::DcVoltage>, 1, 1},
      {"[SENSe:]VOLTage[:DC]:NPLCycles?", &Self::Cycles<Measurand::DcVoltage>, 0, 1},
      {"[SENSe:]VOLTage:AC:RANGe[:UPPer]", &Self::SetRange<Measurand::AcVoltage>, 1, 1},
      {"[SENSe:]VOLTage:AC:RANGe[:UPPer]?", &Self::Range<Measurand::AcVoltage>, 0, 1},
      {"[SENSe:]VOLTage:AC:RANGe:AUTO", &Self::SetAutoRange<Measurand::AcVoltage>, 1, 1},
      {"[SENSe:]VOLTage:AC:RANGe:AUTO?", &Self::AutoRange<Measurand::AcVoltage>},
      {"[SENSe:]CURRent[:DC]:RANGe[:UPPer]", &Self::SetRange<Measurand::DcCurrent>, 1, 1},
      {"[SENSe:]CURRent[:DC]:RANGe[:UPPer]?", &Self::Range<Measurand::DcCurrent>, 0, 1},
      {"[SENSe:]CURRent[:DC]:RANGe:AUTO", &Self::SetAutoRange<Measurand::DcCurrent>, 1, 1},
      {"[SENSe:]CURRent[:DC]:RANGe:AUTO?", &Self::AutoRange<Measurand::DcCurrent>},
      {"[SENSe:]CURRent[:DC]:NPLCycles", &Self::SetCycles<Measurand::DcCurrent>, 1, 1},
      {"[SENSe:]CURRent[:DC]:NPLCycles?", &Self::Cycles<Measurand::DcCurrent>, 0, 1},
      {"[SENSe:]CURRent:AC:RANGe[:UPPer]", &Self::SetRange<Measurand::AcCurrent>, 1, 1},
      {"[SENSe:]CURRent:AC:RANGe[:UPPer]?", &Self::Range<Measurand::AcCurrent>, 0, 1},
      {"[SENSe:]CURRent:AC:RANGe:AUTO", &Self::SetAutoRange<Measurand::AcCurrent>, 1, 1},
      {"[SENSe:]CURRent:AC:RANGe:AUTO?", &Self::AutoRange<Measurand::AcCurrent>},
      {"[SENSe:]RESistance:RANGe[:UPPer]", &Self::SetRange<Measurand::Resistance>, 1, 1},
      {"[SENSe:]RESistance:RANGe[:UPPer]?", &Self::Range<Measurand::Resistance>, 0, 1},
      {"[SENSe:]RESistance:RANGe:AUTO", &Self::SetAutoRange<Measurand::Resistance>, 1, 1},
      {"[SENSe:]RESistance:RANGe:AUTO?", &Self::AutoRange<Measurand::Resistance>},
      {"[SENSe:]RESistance:NPLCycles", &Self::SetCycles<Measurand::Resistance>, 1, 1},
      {"[SENSe:]RESistance:NPLCycles?", &Self::Cycles<Measurand::Resistance>, 0, 1},
      {"[SENSe:]FRESistance:RANGe[:UPPer]", &Self::SetRange<Measurand::FourWireResistance>, 1, 1},
      {"[SENSe:]FRESistance:RANGe[:UPPer]?", &Self::Range<Measurand::FourWireResistance>, 0, 1},
      {"[SENSe:]FRESistance:RANGe:AUTO", &Self::SetAutoRange<Measurand::FourWireResistance>, 1, 1},
      {"[SENSe:]FRESistance:RANGe:AUTO?", &Self::AutoRange<Measurand::FourWireResistance>},
      {"[SENSe:]FRESistance:NPLCycles", &Self::SetCycles<Measurand::FourWireResistance>, 1, 1},
      {"[SENSe:]FRESistance:NPLCycles?", &Self::Cycles<Measurand::FourWireResistance>, 0, 1},
      {"[SENSe:]FREQuency:RANGe[:UPPer]", &Self::SetRange<Measurand::Frequency>, 1, 1},
      {"[SENSe:]FREQuency:RANGe[:UPPer]?", &Self::Range<Measurand::Frequency>, 0, 1},
      {"[SENSe:]FREQuency:RANGe:AUTO", &Self::SetAutoRange<Measurand::Frequency>, 1, 1},
      {"[SENSe:]FREQuency:RANGe:AUTO?", &Self::AutoRange<Measurand::Frequency>},
      {"[SENSe:]TEMPerature:NPLCycles", &Self::SetCycles<Measurand::Temperature>, 1, 1},
      {"[SENSe:]TEMPerature:NPLCycles?", &Self::Cycles<Measurand::Temperature>, 0, 1},
      {"[SENSe:]FREQuency:APERture", &Self::SetAperture, 1, 1},
      {"[SENSe:]FREQuency:APERture?", &Self::Aperture, 0, 1},
      {"[SENSe:]TEMPerature:TRANsducer:TYPE", &Self::SetTransducer, 1, 1},
      {"[SENSe:]TEMPerature:TRANsducer:TYPE?", &Self::Transducer},
      {"UNIT[:TEMPerature]", &Self::SetTemperatureUnit, 1, 1},
      {"UNIT[:TEMPerature]?", &Self::TemperatureUnit},
      {"SAMPle:COUNt", &Self::SetSamples, 1, 1},
      {"SAMPle:COUNt?", &Self::Samples, 0, 1},
      {"TRIGger:COUNt", &Self::SetTriggers, 1, 1},
      {"TRIGger:COUNt?", &Self::Triggers, 0, 1},
      {"TRIGger:SOURce", &Self::SetTriggerSource, 1, 1},
      {"TRIGger:SOURce?", &Self::TriggerSource},
      {"TRIGger:DELay", &Self::SetDelay, 1, 1},
      {"TRIGger:DELay?", &Self::Delay, 0, 1},
      {"TRIGger:DELay:AUTO", &Self::SetAutoDelay, 1, 1},
      {"TRIGger:DELay:AUTO?", &Self::AutoDelay},
  };
  tree.Add(table, *this);
}

void MultimeterSettingCommands::SetFunction(const Call& call) {
  m_settings.Measured = MultimeterFunction::Named(call.String(0));
}

void MultimeterSettingCommands::SenseFunction(const Call& /*call*/) {
  m_executor.Respond(FormatString(MultimeterFunction::Of(m_settings.Measured).ShortName()));
}

// How it is measured.

template <Measurand measurand>
void MultimeterSettingCommands::SetRange(const Call& call) {
  const MultimeterFunction& function = MultimeterFunction::Of(measurand);
  m_settings.SetupOf(measurand).Range = function.RangeFor(call.Number(0, function.RangeLimits()));
  m_settings.SetupOf(measurand).AutoRange = false;
}

template <Measurand measurand>
void MultimeterSettingCommands::Range(const Call& call) {
  m_executor.Respond(
      FormatReal(call.LimitOr(m_settings.SetupOf(measurand).Range, MultimeterFunction::Of(measurand).RangeLimits())));
}

/// `ONCE` finds the range now, and leaves it.
template <Measurand measurand>
void MultimeterSettingCommands::SetAutoRange(const Call& call) {
  const bool once = call.IsKeyword(0, "ONCE");
  m_settings.SetupOf(measurand).AutoRange = !once && call.Boolean(0);
  const MultimeterFunction& function = MultimeterFunction::Of(measurand);
  if (once) m_settings.SetupOf(measurand).Range = function.RangeFor(function.Source);
}

template <Measurand measurand>
void MultimeterSettingCommands::AutoRange(const Call& /*call*/) {
  m_executor.Respond(FormatBoolean(m_settings.SetupOf(measurand).AutoRange));
}

template <Measurand measurand>
void MultimeterSettingCommands::SetCycles(const Call& call) {
  m_settings.SetupOf(measurand).Cycles = call.Number(0, CycleLimits);
}

template <Measurand measurand>
void MultimeterSettingCommands::Cycles(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_settings.SetupOf(measurand).Cycles, CycleLimits)));
}

void MultimeterSettingCommands::SetAperture(const Call& call) {
  m_settings.SetupOf(Measurand::Frequency).Cycles = call.Number(0, ApertureSeconds) * MultimeterFunction::LineFrequency;
}

void MultimeterSettingCommands::Aperture(const Call& call) {
  const double seconds = m_settings.SetupOf(Measurand::Frequency).Cycles / MultimeterFunction::LineFrequency;
  m_executor.Respond(FormatReal(call.LimitOr(seconds, ApertureSeconds)));
}

void MultimeterSettingCommands::SetTransducer(const Call& call) {
  m_settings.Transducer = call.Keyword(0, MultimeterSettings::Transducers);
}

void MultimeterSettingCommands::Transducer(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(MultimeterSettings::Transducers, m_settings.Transducer));
}

void MultimeterSettingCommands::SetTemperatureUnit(const Call& call) {
  m_settings.TemperatureUnit = call.Keyword(0, TemperatureUnits);
}

void MultimeterSettingCommands::TemperatureUnit(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(TemperatureUnits, m_settings.TemperatureUnit));
}

// How often, and when.

void MultimeterSettingCommands::SetSamples(const Call& call) {
  m_settings.Trigger.Samples = call.Whole(0, SampleLimits);
}

void MultimeterSettingCommands::Samples(const Call& call) {
  m_executor.Respond(std::to_string(call.WholeOr(m_settings.Trigger.Samples, SampleLimits)));
}

void MultimeterSettingCommands::SetTriggers(const Call& call) {
  m_settings.Trigger.Count = call.Whole(0, TriggerLimits);
}

void MultimeterSettingCommands::Triggers(const Call& call) {
  m_executor.Respond(std::to_string(call.WholeOr(m_settings.Trigger.Count, TriggerLimits)));
}

void MultimeterSettingCommands::SetTriggerSource(const Call& call) {
  m_settings.Trigger.Source = static_cast<MultimeterSettings::TriggerSource>(call.Keyword(0, TriggerSources));
}

void MultimeterSettingCommands::TriggerSource(const Call& /*call*/) {
  m_executor.Respond(scpi::ShortOf(TriggerSources, static_cast<std::size_t>(m_settings.Trigger.Source)));
}

void MultimeterSettingCommands::SetDelay(const Call& call) {
  m_settings.Trigger.Delay = call.Number(0, TriggerDelaySeconds);
  m_settings.Trigger.AutoDelay = false;
}

void MultimeterSettingCommands::Delay(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_settings.Trigger.Delay, TriggerDelaySeconds)));
}

void MultimeterSettingCommands::SetAutoDelay(const Call& call) {
  m_settings.Trigger.AutoDelay = call.Boolean(0);
  if (m_settings.Trigger.AutoDelay) m_settings.Trigger.Delay = 0;
}

void MultimeterSettingCommands::AutoDelay(const Call& /*call*/) {
  m_executor.Respond(FormatBoolean(m_settings.Trigger.AutoDelay));
}

} // namespace portico::simulator
