#include "simulator/devices/Multimeter.h"
#include "simulator/language/Mnemonic.h"

#include <string>

namespace portico::simulator {
namespace {

constexpr Limits CycleLimits{0.02, 100, 1};
constexpr Limits ApertureSeconds{0.01, 1, 0.1, Quantity::Time};
constexpr Limits DelaySeconds{0, 3600, 0, Quantity::Time};
constexpr Limits SampleLimits{1, 1000, 1};
constexpr Limits TriggerLimits{1, 10, 1};
constexpr std::string_view TriggerSources[] = {"IMMediate", "BUS", "EXTernal"};
constexpr std::string_view Transducers[] = {"FRTD", "RTD", "FTHermistor", "THERmistor"};
constexpr std::string_view TemperatureUnits[] = {"C", "F", "K"};

} // namespace

MultimeterSettings::MultimeterSettings() {
  for (std::size_t i = 0; i < MeasurandCount; ++i) {
    setups[i] = MultimeterFunction::Of(static_cast<Measurand>(i)).StandardSetup();
  }
}

void Multimeter::AddSettingsTo(CommandTree& tree) {
  using Self = Multimeter;
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

      {"CONFigure[:VOLTage][:DC]", &Self::Configure<Measurand::DcVoltage>, 0, 2},
      {"CONFigure:VOLTage:AC", &Self::Configure<Measurand::AcVoltage>, 0, 2},
      {"CONFigure:CURRent[:DC]", &Self::Configure<Measurand::DcCurrent>, 0, 2},
      {"CONFigure:CURRent:AC", &Self::Configure<Measurand::AcCurrent>, 0, 2},
      {"CONFigure:RESistance", &Self::Configure<Measurand::Resistance>, 0, 2},
      {"CONFigure:FRESistance", &Self::Configure<Measurand::FourWireResistance>, 0, 2},
      {"CONFigure:FREQuency", &Self::Configure<Measurand::Frequency>, 0, 2},
      {"CONFigure:TEMPerature", &Self::ConfigureTemperature, 0, 1},
      {"CONFigure?", &Self::Configuration},
      {"MEASure[:VOLTage][:DC]?", &Self::Measure<Measurand::DcVoltage>, 0, 2},
      {"MEASure:VOLTage:AC?", &Self::Measure<Measurand::AcVoltage>, 0, 2},
      {"MEASure:CURRent[:DC]?", &Self::Measure<Measurand::DcCurrent>, 0, 2},
      {"MEASure:CURRent:AC?", &Self::Measure<Measurand::AcCurrent>, 0, 2},
      {"MEASure:RESistance?", &Self::Measure<Measurand::Resistance>, 0, 2},
      {"MEASure:FRESistance?", &Self::Measure<Measurand::FourWireResistance>, 0, 2},
      {"MEASure:FREQuency?", &Self::Measure<Measurand::Frequency>, 0, 2},
      {"MEASure:TEMPerature?", &Self::MeasureTemperature, 0, 1},

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

// What is measured.

void Multimeter::ConfigureTo(Measurand measurand, const MeasurandSetup& setup) {
  m_settings.measurand = measurand;
  SetupOf(measurand) = setup;
  m_settings.trigger = {};
}

template <Measurand measurand>
void Multimeter::Configure(const Call& call) {
  m_executor.Supersede(
      [this, setup = MultimeterFunction::Of(measurand).SetupFrom(call)] { ConfigureTo(measurand, setup); });
}

template <Measurand measurand>
void Multimeter::Measure(const Call& call) {
  m_executor.Supersede([this, setup = MultimeterFunction::Of(measurand).SetupFrom(call)] {
    ConfigureTo(measurand, setup);
    MeasureAndRespond();
  });
}

void Multimeter::ConfigureTemperature(const Call& call) {
  m_executor.Supersede([this, transducer = TransducerOf(call)] { ConfigureFor(transducer); });
}

void Multimeter::MeasureTemperature(const Call& call) {
  m_executor.Supersede([this, transducer = TransducerOf(call)] {
    ConfigureFor(transducer);
    MeasureAndRespond();
  });
}

void Multimeter::ConfigureFor(std::size_t transducer) {
  ConfigureTo(Measurand::Temperature, MultimeterFunction::Of(Measurand::Temperature).StandardSetup());
  m_settings.transducer = transducer;
}

std::size_t Multimeter::TransducerOf(const Call& call) {
  return call.Count() == 0 || call.IsKeyword(0, "DEFault") ? Settings().transducer : call.Keyword(0, Transducers);
}

/// The function, its range, or for a temperature its transducer, and its resolution.
void Multimeter::Configuration(const Call& /*call*/) {
  const MeasurandSetup& setup = SetupOf(m_settings.measurand);
  const bool temperature = m_settings.measurand == Measurand::Temperature;
  m_executor.Respond(
      FormatString(MultimeterFunction::Of(m_settings.measurand).ShortName() + ' ' +
                   (temperature ? ShortOf(Transducers, m_settings.transducer) : FormatReal(setup.range)) + ',' +
                   FormatReal(ResolutionOf(setup))));
}

void Multimeter::SetFunction(const Call& call) { m_settings.measurand = MultimeterFunction::Named(call.String(0)); }

void Multimeter::SenseFunction(const Call& /*call*/) {
  m_executor.Respond(FormatString(MultimeterFunction::Of(m_settings.measurand).ShortName()));
}

// How it is measured.

template <Measurand measurand>
void Multimeter::SetRange(const Call& call) {
  const MultimeterFunction& function = MultimeterFunction::Of(measurand);
  SetupOf(measurand).range = function.RangeFor(call.Number(0, function.RangeLimits()));
  SetupOf(measurand).autoRange = false;
}

template <Measurand measurand>
void Multimeter::Range(const Call& call) {
  m_executor.Respond(
      FormatReal(call.LimitOr(SetupOf(measurand).range, MultimeterFunction::Of(measurand).RangeLimits())));
}

/// `ONCE` finds the range now, and leaves it.
template <Measurand measurand>
void Multimeter::SetAutoRange(const Call& call) {
  const bool once = call.IsKeyword(0, "ONCE");
  SetupOf(measurand).autoRange = !once && call.Boolean(0);
  const MultimeterFunction& function = MultimeterFunction::Of(measurand);
  if (once) SetupOf(measurand).range = function.RangeFor(function.source);
}

template <Measurand measurand>
void Multimeter::AutoRange(const Call& /*call*/) {
  m_executor.Respond(FormatBoolean(SetupOf(measurand).autoRange));
}

template <Measurand measurand>
void Multimeter::SetCycles(const Call& call) {
  SetupOf(measurand).cycles = call.Number(0, CycleLimits);
}

template <Measurand measurand>
void Multimeter::Cycles(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(SetupOf(measurand).cycles, CycleLimits)));
}

void Multimeter::SetAperture(const Call& call) {
  SetupOf(Measurand::Frequency).cycles = call.Number(0, ApertureSeconds) * MultimeterFunction::LineFrequency;
}

void Multimeter::Aperture(const Call& call) {
  const double seconds = SetupOf(Measurand::Frequency).cycles / MultimeterFunction::LineFrequency;
  m_executor.Respond(FormatReal(call.LimitOr(seconds, ApertureSeconds)));
}

void Multimeter::SetTransducer(const Call& call) { m_settings.transducer = call.Keyword(0, Transducers); }

void Multimeter::Transducer(const Call& /*call*/) { m_executor.Respond(ShortOf(Transducers, m_settings.transducer)); }

void Multimeter::SetTemperatureUnit(const Call& call) {
  m_settings.temperatureUnit = call.Keyword(0, TemperatureUnits);
}

void Multimeter::TemperatureUnit(const Call& /*call*/) {
  m_executor.Respond(ShortOf(TemperatureUnits, m_settings.temperatureUnit));
}

// How often, and when.

void Multimeter::SetSamples(const Call& call) { m_settings.trigger.samples = call.Whole(0, SampleLimits); }

void Multimeter::Samples(const Call& call) {
  m_executor.Respond(std::to_string(call.WholeOr(m_settings.trigger.samples, SampleLimits)));
}

void Multimeter::SetTriggers(const Call& call) { m_settings.trigger.count = call.Whole(0, TriggerLimits); }

void Multimeter::Triggers(const Call& call) {
  m_executor.Respond(std::to_string(call.WholeOr(m_settings.trigger.count, TriggerLimits)));
}

void Multimeter::SetTriggerSource(const Call& call) {
  m_settings.trigger.source = static_cast<Settings::TriggerSource>(call.Keyword(0, TriggerSources));
}

void Multimeter::TriggerSource(const Call& /*call*/) {
  m_executor.Respond(ShortOf(TriggerSources, static_cast<std::size_t>(m_settings.trigger.source)));
}

void Multimeter::SetDelay(const Call& call) {
  m_settings.trigger.delay = call.Number(0, DelaySeconds);
  m_settings.trigger.autoDelay = false;
}

void Multimeter::Delay(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_settings.trigger.delay, DelaySeconds)));
}

void Multimeter::SetAutoDelay(const Call& call) {
  m_settings.trigger.autoDelay = call.Boolean(0);
  if (m_settings.trigger.autoDelay) m_settings.trigger.delay = 0;
}

void Multimeter::AutoDelay(const Call& /*call*/) { m_executor.Respond(FormatBoolean(m_settings.trigger.autoDelay)); }

} // namespace portico::simulator
