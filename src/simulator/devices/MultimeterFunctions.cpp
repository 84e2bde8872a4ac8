#include "simulator/devices/MultimeterFunctions.h"

#include "simulator/language/Mnemonic.h"
#include "simulator/language/ScpiError.h"
#include "simulator/status/StatusModel.h"

#include <algorithm>
#include <iterator>

namespace portico::simulator {
namespace {

/// The integration times, and the share of the range that each resolves.
struct Integration {
  double cycles;
  double resolution;
};
constexpr Integration kIntegrations[] = {{0.02, 1E-4}, {0.2, 1E-5}, {1, 3E-6}, {10, 1E-6}, {100, 3E-7}};

constexpr double kVoltRanges[] = {0.1, 1, 10, 100, 1000};
constexpr double kAmpereRanges[] = {0.01, 0.1, 1, 3};
constexpr double kOhmRanges[] = {100, 1E3, 1E4, 1E5, 1E6, 1E7};
constexpr double kHertzRanges[] = {10, 100, 1E3, 1E4, 1E5, 3E5};
constexpr double kCelsiusRanges[] = {1000};

constexpr MultimeterFunction kFunctions[kMeasurands] = {
    {"VOLTage", kVoltRanges, 10, 1, 1.000234, Quantity::Voltage, questionable::kVoltage},
    {"VOLTage:AC", kVoltRanges, 10, 1, 0.707107, Quantity::Voltage, questionable::kVoltage},
    {"CURRent", kAmpereRanges, 1, 1, 0.0123456, Quantity::Current, questionable::kCurrent},
    {"CURRent:AC", kAmpereRanges, 1, 1, 0.00812345, Quantity::Current, questionable::kCurrent},
    {"RESistance", kOhmRanges, 1E3, 1, 4702.15, Quantity::Resistance, questionable::kResistance},
    {"FRESistance", kOhmRanges, 1E3, 1, 4701.95, Quantity::Resistance, questionable::kResistance},
    {"FREQuency", kHertzRanges, 1E3, 5, 1000.25, Quantity::Frequency, questionable::kFrequency},
    {"TEMPerature", kCelsiusRanges, 1000, 1, 23.45, Quantity::None, questionable::kTemperature},
};

double ShareResolved(double cycles) {
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

} // namespace

const MultimeterFunction& MultimeterFunction::Of(Measurand measurand) {
  return kFunctions[static_cast<std::size_t>(measurand)];
}

Measurand MultimeterFunction::Named(std::string name) {
  if (name.ends_with(":DC") || name.ends_with(":dc")) name.resize(name.size() - 3);
  const auto* found =
      std::find_if(std::begin(kFunctions), std::end(kFunctions),
                   [&name](const MultimeterFunction& function) { return Mnemonic(function.name).Matches(name); });
  if (found == std::end(kFunctions)) throw ScpiError(ErrorCode::IllegalParameterValue);
  return static_cast<Measurand>(found - std::begin(kFunctions));
}

std::string MultimeterFunction::ShortName() const { return Mnemonic(name).Short(); }

double MultimeterFunction::RangeFor(double value) const {
  const auto found = std::lower_bound(ranges.begin(), ranges.end(), value);
  return found == ranges.end() ? ranges.back() : *found;
}

MeasurandSetup MultimeterFunction::SetupFrom(const Call& call) const {
  MeasurandSetup setup = StandardSetup();
  if (call.Count() > 0 && !call.IsKeyword(0, "AUTO") && !call.IsKeyword(0, "DEFault")) {
    setup.range = RangeFor(call.Number(0, {0, ranges.back(), standardRange, quantity}));
    setup.autoRange = false;
  }
  if (call.Count() > 1) {
    const double finest = setup.range * std::rbegin(kIntegrations)->resolution;
    const double usual = ResolutionOf(setup);
    setup.cycles = CyclesFor(call.Number(1, {finest, setup.range, usual, quantity}) / setup.range);
  }
  return setup;
}

double ResolutionOf(const MeasurandSetup& setup) { return setup.range * ShareResolved(setup.cycles); }

} // namespace portico::simulator
