#include "simulator/Multimeter.h"

#include "simulator/Mnemonic.h"
#include "simulator/ScpiError.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

namespace portico::simulator {
namespace {

constexpr double kLineFrequency = 50; // Hz
constexpr double kOverrange = 1.2;    // of the range can be read
constexpr std::size_t kLongestText = 40;
constexpr std::size_t kDefaultPoints = 1000;
constexpr std::int64_t kMostPoints = 1'000'000;
constexpr std::int64_t kMostSamples = 1000;
constexpr std::int64_t kMostTriggers = 10;

constexpr Limits kCycles{0.02, 100, 1};

/// The integration times, and the share of the range that each resolves.
struct Integration {
  double cycles;
  double resolution;
};
constexpr Integration kIntegrations[] = {{0.02, 1E-4}, {0.2, 1E-5}, {1, 3E-6}, {10, 1E-6}, {100, 3E-7}};

constexpr double kVoltRanges[] = {0.1, 1, 10, 100, 1000};
constexpr double kAmpereRanges[] = {0.01, 0.1, 1, 3};
constexpr double kOhmRanges[] = {100, 1E3, 1E4, 1E5, 1E6, 1E7};

/// One function of the meter, and the source that it finds at its terminals.
struct FunctionTraits {
  std::string_view name;
  std::span<const double> ranges;
  double standardRange;
  double source;
  Quantity quantity;
  std::uint16_t overload; ///< bit of the questionable status register
};

constexpr FunctionTraits kFunctions[] = {
    {"VOLTage", kVoltRanges, 10, 1.000234, Quantity::Voltage, questionable::kVoltage},
    {"VOLTage:AC", kVoltRanges, 10, 0.707107, Quantity::Voltage, questionable::kVoltage},
    {"CURRent", kAmpereRanges, 1, 0.0123456, Quantity::Current, questionable::kCurrent},
    {"CURRent:AC", kAmpereRanges, 1, 0.00812345, Quantity::Current, questionable::kCurrent},
    {"RESistance", kOhmRanges, 1E3, 4702.15, Quantity::Resistance, questionable::kResistance},
};

Limits RangeLimits(const FunctionTraits& traits) {
  return {traits.ranges.front(), traits.ranges.back(), traits.standardRange, traits.quantity};
}

/// The smallest range that holds the value.
double RangeFor(const FunctionTraits& traits, double value) {
  const auto found = std::lower_bound(traits.ranges.begin(), traits.ranges.end(), value);
  return found == traits.ranges.end() ? traits.ranges.back() : *found;
}

double ResolutionOf(double cycles) {
  const auto* found = std::find_if(std::begin(kIntegrations), std::end(kIntegrations) - 1,
                                   [cycles](const Integration& each) { return each.cycles >= cycles; });
  return found->resolution;
}

/// The shortest integration that resolves this share of the range, or else the longest.
double CyclesFor(double resolution) {
  // A client may give back a resolution as it was answered; rounding must not ask for ten times the integration.
  const double tolerated = resolution * (1 + 1E-9);
  const auto* found = std::find_if(std::begin(kIntegrations), std::end(kIntegrations) - 1,
                                   [tolerated](const Integration& each) { return each.resolution <= tolerated; });
  return found->cycles;
}

std::string ShortName(const FunctionTraits& traits) { return Mnemonic(traits.name).Short(); }

} // namespace

Multimeter::Multimeter(Executor& executor, StatusModel& status, std::uint64_t seed)
    : m_executor(executor), m_status(status), m_random(seed) {
  Reset();
}

void Multimeter::AddTo(CommandTree& tree) {
  using Self = Multimeter;
  static constexpr Command<Self> kTable[] = {
      {"CONFigure[:VOLTage][:DC]", &Self::Configure<DcVoltage>, 0, 2},
      {"CONFigure:VOLTage:AC", &Self::Configure<AcVoltage>, 0, 2},
      {"CONFigure:CURRent[:DC]", &Self::Configure<DcCurrent>, 0, 2},
      {"CONFigure:CURRent:AC", &Self::Configure<AcCurrent>, 0, 2},
      {"CONFigure:RESistance", &Self::Configure<Resistance>, 0, 2},
      {"CONFigure?", &Self::Configuration},
      {"MEASure[:VOLTage][:DC]?", &Self::Measure<DcVoltage>, 0, 2},
      {"MEASure:VOLTage:AC?", &Self::Measure<AcVoltage>, 0, 2},
      {"MEASure:CURRent[:DC]?", &Self::Measure<DcCurrent>, 0, 2},
      {"MEASure:CURRent:AC?", &Self::Measure<AcCurrent>, 0, 2},
      {"MEASure:RESistance?", &Self::Measure<Resistance>, 0, 2},

      {"[SENSe:]FUNCtion[:ON]", &Self::SetFunction, 1, 1},
      {"[SENSe:]FUNCtion[:ON]?", &Self::SenseFunction},
      {"[SENSe:]VOLTage[:DC]:RANGe[:UPPer]", &Self::SetRange<DcVoltage>, 1, 1},
      {"[SENSe:]VOLTage[:DC]:RANGe[:UPPer]?", &Self::Range<DcVoltage>, 0, 1},
      {"[SENSe:]VOLTage[:DC]:RANGe:AUTO", &Self::SetAutoRange<DcVoltage>, 1, 1},
      {"[SENSe:]VOLTage[:DC]:RANGe:AUTO?", &Self::AutoRange<DcVoltage>},
      {"[SENSe:]VOLTage[:DC]:NPLCycles", &Self::SetCycles<DcVoltage>, 1, 1},
      {"[SENSe:]VOLTage[:DC]:NPLCycles?", &Self::Cycles<DcVoltage>, 0, 1},
      {"[SENSe:]VOLTage:AC:RANGe[:UPPer]", &Self::SetRange<AcVoltage>, 1, 1},
      {"[SENSe:]VOLTage:AC:RANGe[:UPPer]?", &Self::Range<AcVoltage>, 0, 1},
      {"[SENSe:]VOLTage:AC:RANGe:AUTO", &Self::SetAutoRange<AcVoltage>, 1, 1},
      {"[SENSe:]VOLTage:AC:RANGe:AUTO?", &Self::AutoRange<AcVoltage>},
      {"[SENSe:]CURRent[:DC]:RANGe[:UPPer]", &Self::SetRange<DcCurrent>, 1, 1},
      {"[SENSe:]CURRent[:DC]:RANGe[:UPPer]?", &Self::Range<DcCurrent>, 0, 1},
      {"[SENSe:]CURRent[:DC]:RANGe:AUTO", &Self::SetAutoRange<DcCurrent>, 1, 1},
      {"[SENSe:]CURRent[:DC]:RANGe:AUTO?", &Self::AutoRange<DcCurrent>},
      {"[SENSe:]CURRent[:DC]:NPLCycles", &Self::SetCycles<DcCurrent>, 1, 1},
      {"[SENSe:]CURRent[:DC]:NPLCycles?", &Self::Cycles<DcCurrent>, 0, 1},
      {"[SENSe:]RESistance:RANGe[:UPPer]", &Self::SetRange<Resistance>, 1, 1},
      {"[SENSe:]RESistance:RANGe[:UPPer]?", &Self::Range<Resistance>, 0, 1},
      {"[SENSe:]RESistance:RANGe:AUTO", &Self::SetAutoRange<Resistance>, 1, 1},
      {"[SENSe:]RESistance:RANGe:AUTO?", &Self::AutoRange<Resistance>},
      {"[SENSe:]RESistance:NPLCycles", &Self::SetCycles<Resistance>, 1, 1},
      {"[SENSe:]RESistance:NPLCycles?", &Self::Cycles<Resistance>, 0, 1},

      {"INITiate[:IMMediate]", &Self::Initiate},
      {"ABORt", &Self::Abort},
      {"FETCh?", &Self::Fetch},
      {"READ?", &Self::Read},
      {"SAMPle:COUNt", &Self::SetSamples, 1, 1},
      {"SAMPle:COUNt?", &Self::Samples},
      {"TRIGger:COUNt", &Self::SetTriggers, 1, 1},
      {"TRIGger:COUNt?", &Self::Triggers},

      {"ROUTe:TERMinals?", &Self::Terminals},
      {"DISPlay[:STATe]", &Self::SetDisplay, 1, 1},
      {"DISPlay[:STATe]?", &Self::Display},
      {"DISPlay:TEXT[:DATA]", &Self::SetText, 1, 1},
      {"DISPlay:TEXT[:DATA]?", &Self::Text},
      {"DISPlay:TEXT:CLEar", &Self::ClearText},
      {"TRACe:POINts", &Self::SetPoints, 1, 1},
      {"TRACe:POINts?", &Self::Points},
      {"TRACe[:DATA]", &Self::SetTrace, 1, 1},
      {"TRACe[:DATA]?", &Self::Trace},
  };
  tree.Add(kTable, *this);
}

void Multimeter::Reset() {
  m_function = DcVoltage;
  for (std::size_t i = 0; i < FunctionCount; ++i) m_setups[i] = {kFunctions[i].standardRange, true, kCycles.standard};
  m_samples = m_triggers = 1;
  m_readings.clear();
  m_displayOn = true;
  m_text.clear();
  m_trace = MakeTrace(kDefaultPoints);
}

// What is measured, and how.

Multimeter::Setup Multimeter::SetupFrom(Function function, const Call& call) {
  const FunctionTraits& traits = kFunctions[function];
  Setup setup{traits.standardRange, true, kCycles.standard};
  if (call.Count() > 0 && !call.IsKeyword(0, "AUTO") && !call.IsKeyword(0, "DEFault")) {
    setup.range = RangeFor(traits, call.Number(0, {0, traits.ranges.back(), traits.standardRange, traits.quantity}));
    setup.autoRange = false;
  }
  if (call.Count() > 1) {
    const double finest = setup.range * std::rbegin(kIntegrations)->resolution;
    const double usual = setup.range * ResolutionOf(kCycles.standard);
    setup.cycles = CyclesFor(call.Number(1, {finest, setup.range, usual, traits.quantity}) / setup.range);
  }
  return setup;
}

void Multimeter::ConfigureTo(Function function, const Setup& setup) {
  m_function = function;
  m_setups[function] = setup;
  m_samples = m_triggers = 1;
}

template <Multimeter::Function function>
void Multimeter::Configure(const Call& call) {
  m_executor.Supersede([this, setup = SetupFrom(function, call)] { ConfigureTo(function, setup); });
}

template <Multimeter::Function function>
void Multimeter::Measure(const Call& call) {
  m_executor.Supersede([this, setup = SetupFrom(function, call)] {
    ConfigureTo(function, setup);
    MeasureAndRespond();
  });
}

void Multimeter::Configuration(const Call& /*call*/) {
  const Setup& setup = m_setups[m_function];
  const double resolution = setup.range * ResolutionOf(setup.cycles);
  m_executor.Respond(
      FormatString(ShortName(kFunctions[m_function]) + ' ' + FormatReal(setup.range) + ',' + FormatReal(resolution)));
}

void Multimeter::SetFunction(const Call& call) {
  std::string name = call.String(0);
  if (name.ends_with(":DC") || name.ends_with(":dc")) name.resize(name.size() - 3);
  const auto* found = std::find_if(std::begin(kFunctions), std::end(kFunctions), [&name](const FunctionTraits& traits) {
    return Mnemonic(traits.name).Matches(name);
  });
  if (found == std::end(kFunctions)) throw ScpiError(ErrorCode::IllegalParameterValue);
  m_function = static_cast<Function>(found - std::begin(kFunctions));
}

void Multimeter::SenseFunction(const Call& /*call*/) {
  m_executor.Respond(FormatString(ShortName(kFunctions[m_function])));
}

template <Multimeter::Function function>
void Multimeter::SetRange(const Call& call) {
  const FunctionTraits& traits = kFunctions[function];
  const double value = call.Number(0, RangeLimits(traits));
  m_setups[function].range = RangeFor(traits, value);
  m_setups[function].autoRange = false;
}

template <Multimeter::Function function>
void Multimeter::Range(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_setups[function].range, RangeLimits(kFunctions[function]))));
}

template <Multimeter::Function function>
void Multimeter::SetAutoRange(const Call& call) {
  m_setups[function].autoRange = call.Boolean(0);
}

template <Multimeter::Function function>
void Multimeter::AutoRange(const Call& /*call*/) {
  m_executor.Respond(FormatBoolean(m_setups[function].autoRange));
}

template <Multimeter::Function function>
void Multimeter::SetCycles(const Call& call) {
  m_setups[function].cycles = call.Number(0, kCycles);
}

template <Multimeter::Function function>
void Multimeter::Cycles(const Call& call) {
  m_executor.Respond(FormatReal(call.LimitOr(m_setups[function].cycles, kCycles)));
}

// Measuring.

double Multimeter::Reading() {
  const FunctionTraits& traits = kFunctions[m_function];
  Setup& setup = m_setups[m_function];
  if (setup.autoRange) setup.range = RangeFor(traits, traits.source);
  const double value = traits.source + setup.range * ResolutionOf(setup.cycles) * m_random.Noise();
  const bool overload = value > setup.range * kOverrange;
  if (overload) {
    m_status.Questionable().Set(traits.overload);
    return std::numeric_limits<double>::infinity();
  }
  m_status.Questionable().Clear(traits.overload);
  return value;
}

/// The readings are those of the settings at the start, whatever is changed while they are being taken.
void Multimeter::StartMeasurement() {
  const auto count = static_cast<std::size_t>(m_samples * m_triggers);
  std::vector<double> readings(count);
  std::generate(readings.begin(), readings.end(), [this] { return Reading(); });
  const std::chrono::duration<double> each(m_setups[m_function].cycles / kLineFrequency);
  m_readings.clear();
  m_executor.StartOperation(std::chrono::round<Executor::Duration>(each * static_cast<double>(count)),
                            operation::kMeasuring,
                            [this, taken = std::move(readings)]() mutable { m_readings = std::move(taken); });
}

void Multimeter::MeasureAndRespond() {
  StartMeasurement();
  m_executor.Await([this] { RespondReadings(); });
}

void Multimeter::RespondReadings() {
  if (m_readings.empty()) throw ScpiError(ErrorCode::DataCorruptOrStale);
  m_executor.Respond(FormatReals(m_readings));
}

void Multimeter::Initiate(const Call& /*call*/) {
  if (m_executor.OperationPending()) throw ScpiError(ErrorCode::InitIgnored);
  StartMeasurement();
}

void Multimeter::Abort(const Call& /*call*/) { m_executor.CancelOperation(); }

void Multimeter::Fetch(const Call& /*call*/) {
  m_executor.WhenIdle([this] { RespondReadings(); });
}

void Multimeter::Read(const Call& /*call*/) {
  m_executor.WhenIdle([this] { MeasureAndRespond(); });
}

void Multimeter::SetSamples(const Call& call) { m_samples = call.Integer(0, 1, kMostSamples); }

void Multimeter::Samples(const Call& /*call*/) { m_executor.Respond(std::to_string(m_samples)); }

void Multimeter::SetTriggers(const Call& call) { m_triggers = call.Integer(0, 1, kMostTriggers); }

void Multimeter::Triggers(const Call& /*call*/) { m_executor.Respond(std::to_string(m_triggers)); }

// Front panel and waveform memory.

void Multimeter::Terminals(const Call& /*call*/) { m_executor.Respond("FRON"); }

void Multimeter::SetDisplay(const Call& call) { m_displayOn = call.Boolean(0); }

void Multimeter::Display(const Call& /*call*/) { m_executor.Respond(FormatBoolean(m_displayOn)); }

void Multimeter::SetText(const Call& call) {
  std::string text = call.String(0);
  if (text.size() > kLongestText) throw ScpiError(ErrorCode::TooMuchData);
  m_text = std::move(text);
}

void Multimeter::Text(const Call& /*call*/) { m_executor.Respond(FormatString(m_text)); }

void Multimeter::ClearText(const Call& /*call*/) { m_text.clear(); }

void Multimeter::SetPoints(const Call& call) {
  m_trace = MakeTrace(static_cast<std::size_t>(call.Integer(0, 1, kMostPoints)));
}

void Multimeter::Points(const Call& /*call*/) { m_executor.Respond(std::to_string(m_trace.size())); }

void Multimeter::SetTrace(const Call& call) { m_trace = call.Block(0); }

void Multimeter::Trace(const Call& /*call*/) { m_executor.Respond(FormatBlock(m_trace)); }

/// A triangle of one byte a point. Its trough is code 10, the line feed, so that a reader who ends a message there is
/// found out.
std::string Multimeter::MakeTrace(std::size_t points) {
  constexpr std::size_t kPeriod = 64;
  constexpr std::size_t kTrough = 10;
  constexpr std::size_t kStep = 7;
  std::string trace(points, '\0');
  for (std::size_t i = 0; i < points; ++i) {
    const std::size_t phase = i % kPeriod;
    const std::size_t height = std::min(phase, kPeriod - phase) * kStep;
    const std::size_t noise = phase == 0 ? 0 : m_random.Next() % kStep;
    trace[i] = static_cast<char>(static_cast<unsigned char>(kTrough + height + noise));
  }
  return trace;
}

} // namespace portico::simulator
