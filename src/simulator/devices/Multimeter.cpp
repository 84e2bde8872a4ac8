#include "simulator/devices/Multimeter.h"

#include "scpi/Mnemonic.h"
#include "scpi/ScpiError.h"
#include "simulator/language/ResponseFormat.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace portico::simulator {
namespace {

constexpr double Overrange = 1.2; // of the range can be read
constexpr std::size_t DefaultPoints = 1000;
constexpr std::int64_t MostPoints = 1'000'000;

/// How a temperature in degrees Celsius reads in each unit.
struct TemperatureScale {
  double Factor;
  double Offset;
};
constexpr TemperatureScale TemperatureScales[] = {{1, 0}, {1.8, 32}, {1, 273.15}};

} // namespace

Multimeter::Multimeter(Executor& executor, StatusModel& status, std::uint64_t seed)
    : m_executor(executor), m_status(status), m_random(seed) {
  Reset();
}

void Multimeter::AddTo(CommandTree& tree) {
  using Self = Multimeter;
  static constexpr Command<Self> table[] = {
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
      {"INITiate[:IMMediate]", &Self::Initiate},
      {"ABORt", &Self::Abort},
      {"FETCh?", &Self::Fetch},
      {"READ?", &Self::Read},
      {"ROUTe:TERMinals?", &Self::Terminals},
      {"TRACe:POINts", &Self::SetPoints, 1, 1},
      {"TRACe:POINts?", &Self::Points},
      {"TRACe[:DATA]", &Self::SetTrace, 1, 1},
      {"TRACe[:DATA]?", &Self::Trace},
  };
  tree.Add(table, *this);
  m_settingCommands.AddTo(tree);
  m_panel.AddTo(tree);
}

void Multimeter::Reset() {
  m_settings = {};
  m_readings.clear();
  m_panel.Reset();
  m_trace = MakeTrace(DefaultPoints);
}

// What is measured.

void Multimeter::ConfigureTo(Measurand measurand, const MeasurandSetup& setup) {
  m_settings.Measured = measurand;
  SetupOf(measurand) = setup;
  m_settings.Trigger = {};
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
  m_settings.Transducer = transducer;
}

std::size_t Multimeter::TransducerOf(const Call& call) {
  return call.Count() == 0 || call.IsKeyword(0, "DEFault") ? Settings().Transducer
                                                           : call.Keyword(0, Settings::Transducers);
}

/// The function, its range, or for a temperature its transducer, and its resolution.
void Multimeter::Configuration(const Call& /*call*/) {
  const MeasurandSetup& setup = SetupOf(m_settings.Measured);
  const bool temperature = m_settings.Measured == Measurand::Temperature;
  m_executor.Respond(FormatString(
      MultimeterFunction::Of(m_settings.Measured).ShortName() + ' ' +
      (temperature ? scpi::ShortOf(Settings::Transducers, m_settings.Transducer) : FormatReal(setup.Range)) + ',' +
      FormatReal(ResolutionOf(setup))));
}

// Measuring.

double Multimeter::Reading() {
  const MultimeterFunction& function = MultimeterFunction::Of(m_settings.Measured);
  MeasurandSetup& setup = SetupOf(m_settings.Measured);
  if (setup.AutoRange) setup.Range = function.RangeFor(function.Source);
  const double value = function.Source + ResolutionOf(setup) * m_random.Noise();
  const bool overload = value > setup.Range * Overrange;
  if (overload) {
    m_status.Questionable().Set(function.Overload);
    return std::numeric_limits<double>::infinity();
  }
  m_status.Questionable().Clear(function.Overload);
  if (m_settings.Measured != Measurand::Temperature) return value;
  const TemperatureScale& scale = TemperatureScales[m_settings.TemperatureUnit];
  return value * scale.Factor + scale.Offset;
}

void Multimeter::StartMeasurement() {
  m_readings.clear();
  m_taken.clear();
  m_triggersLeft = m_settings.Trigger.Count;
  if (m_settings.Trigger.Source == Settings::TriggerSource::Immediate) {
    TakeReadings(std::exchange(m_triggersLeft, 1) * m_settings.Trigger.Samples);
  } else {
    AwaitTrigger();
  }
}

void Multimeter::AwaitTrigger() { m_executor.StartOperation(Executor::Forever, OperationBit::WaitingForTrigger); }

/// The readings are those of the settings at the start, whatever is changed while they are being taken.
void Multimeter::TakeReadings(std::int64_t count) {
  for (std::int64_t i = 0; i < count; ++i) m_taken.push_back(Reading());
  const std::chrono::duration<double> each(m_settings.Trigger.Delay +
                                           SetupOf(m_settings.Measured).Cycles / MultimeterFunction::LineFrequency);
  m_executor.StartOperation(std::chrono::round<Executor::Duration>(each * static_cast<double>(count)),
                            OperationBit::Measuring, [this] {
                              if (--m_triggersLeft > 0) {
                                AwaitTrigger();
                              } else {
                                m_readings = std::move(m_taken);
                              }
                            });
}

void Multimeter::Trigger() {
  if (!m_executor.OperationIsOpen() || m_settings.Trigger.Source != Settings::TriggerSource::Bus) {
    throw scpi::ScpiError(scpi::ErrorCode::TriggerIgnored);
  }
  TakeReadings(m_settings.Trigger.Samples);
}

void Multimeter::MeasureAndRespond() {
  StartMeasurement();
  m_executor.Await([this] { RespondReadings(); });
}

void Multimeter::RespondReadings() {
  if (m_readings.empty()) throw scpi::ScpiError(scpi::ErrorCode::DataCorruptOrStale);
  m_executor.Respond(FormatReals(m_readings));
}

void Multimeter::Initiate(const Call& /*call*/) {
  if (m_executor.OperationPending()) throw scpi::ScpiError(scpi::ErrorCode::InitIgnored);
  StartMeasurement();
}

void Multimeter::Abort(const Call& /*call*/) { m_executor.CancelOperation(); }

void Multimeter::Fetch(const Call& /*call*/) {
  m_executor.WhenIdle([this] { RespondReadings(); });
}

/// The trigger that it would wait for could only come behind it.
void Multimeter::Read(const Call& /*call*/) {
  if (m_settings.Trigger.Source == Settings::TriggerSource::Bus) {
    throw scpi::ScpiError(scpi::ErrorCode::TriggerDeadlock);
  }
  m_executor.WhenIdle([this] { MeasureAndRespond(); });
}

// Front panel and waveform memory.

void Multimeter::Terminals(const Call& /*call*/) { m_executor.Respond("FRON"); }

void Multimeter::SetPoints(const Call& call) {
  m_trace = MakeTrace(static_cast<std::size_t>(call.Integer(0, 1, MostPoints)));
}

void Multimeter::Points(const Call& /*call*/) { m_executor.Respond(std::to_string(m_trace.size())); }

void Multimeter::SetTrace(const Call& call) { m_trace = call.Block(0); }

void Multimeter::Trace(const Call& /*call*/) { m_executor.Respond(FormatBlock(m_trace)); }

/// A triangle of one byte a point. Its trough is code 10, the line feed, so that a reader who ends a message there is
/// found out.
std::string Multimeter::MakeTrace(std::size_t points) {
  constexpr std::size_t period = 64;
  constexpr std::size_t trough = 10;
  constexpr std::size_t step = 7;
  std::string trace(points, '\0');
  for (std::size_t i = 0; i < points; ++i) {
    const std::size_t phase = i % period;
    const std::size_t height = std::min(phase, period - phase) * step;
    const std::size_t noise = phase == 0 ? 0 : m_random.Next() % step;
    trace[i] = static_cast<char>(static_cast<unsigned char>(trough + height + noise));
  }
  return trace;
}

} // namespace portico::simulator
