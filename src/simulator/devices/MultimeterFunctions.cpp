#include "simulator/devices/MultimeterFunctions.h"

#include "scpi/Mnemonic.h"
#include "scpi/ScpiError.h"
#include "simulator/status/StatusModel.h"

#include <algorithm>
#include <iterator>

namespace portico::simulator {
namespace {

/// The integration times, and the share of the range that each resolves.
struct Integration {
  double Cycles;
  double Resolution;
};
constexpr Integration Integrations[] = {{0.02, 1E-4}, {0.2, 1E-5}, {1, 3E-6}, {10, 1E-6}, {100, 3E-7}};

constexpr double VoltRanges[] = {0.1, 1, 10, 100, 1000};
constexpr double AmpereRanges[] = {0.01, 0.1, 1, 3};
constexpr double OhmRanges[] = {100, 1E3, 1E4, 1E5, 1E6, 1E7};
constexpr double HertzRanges[] = {10, 100, 1E3, 1E4, 1E5, 3E5};
constexpr double CelsiusRanges[] = {1000};

constexpr MultimeterFunction Functions[MeasurandCount] = {
    {"VOLTage", VoltRanges, 10, 1, 1.000234, Quantity::Voltage, QuestionableBit::Voltage},
    {"VOLTage:AC", VoltRanges, 10, 1, 0.707107, Quantity::Voltage, QuestionableBit::Voltage},
    {"CURRent", AmpereRanges, 1, 1, 0.0123456, Quantity::Current, QuestionableBit::Current},
    {"CURRent:AC", AmpereRanges, 1, 1, 0.00812345, Quantity::Current, QuestionableBit::Current},
    {"RESistance", OhmRanges, 1E3, 1, 4702.15, Quantity::Resistance, QuestionableBit::Resistance},
    {"FRESistance", OhmRanges, 1E3, 1, 4701.95, Quantity::Resistance, QuestionableBit::Resistance},
    {"FREQuency", HertzRanges, 1E3, 5, 1000.25, Quantity::Frequency, QuestionableBit::Frequency},
    {"TEMPerature", CelsiusRanges, 1000, 1, 23.45, Quantity::None, QuestionableBit::Temperature},
};

double ShareResolved(double cycles) {
  const auto* found = std::find_if(std::begin(Integrations), std::end(Integrations) - 1,
                                   [cycles](const Integration& each) { return each.Cycles >= cycles; });
  return found->Resolution;
}

/// The shortest integration that resolves this share of the range, or else the longest.
double CyclesFor(double resolution) {
  // A client may give back a resolution as it was answered; rounding must not ask for ten times the integration.
  const double tolerated = resolution * (1 + 1E-9);
  const auto* found = std::find_if(std::begin(Integrations), std::end(Integrations) - 1,
                                   [tolerated](const Integration& each) { return each.Resolution <= tolerated; });
  return found->Cycles;
}

} // namespace

const MultimeterFunction& MultimeterFunction::Of(Measurand measurand) {
  return Functions[static_cast<std::size_t>(measurand)];
}

Measurand MultimeterFunction::Named(std::string name) {
  if (name.ends_with(":DC") || name.ends_with(":dc")) name.resize(name.size() - 3);
  const auto* found =
      std::find_if(std::begin(Functions), std::end(Functions),
                   [&name](const MultimeterFunction& function) { return scpi::Mnemonic(function.Name).Matches(name); });
  if (found == std::end(Functions)) throw scpi::ScpiError(scpi::ErrorCode::IllegalParameterValue);
  return static_cast<Measurand>(found - std::begin(Functions));
}

std::string MultimeterFunction::ShortName() const { return scpi::Mnemonic(Name).Short(); }

double MultimeterFunction::RangeFor(double value) const {
  const auto found = std::lower_bound(Ranges.begin(), Ranges.end(), value);
  return found == Ranges.end() ? Ranges.back() : *found;
}

MeasurandSetup MultimeterFunction::SetupFrom(const Call& call) const {
  MeasurandSetup setup = StandardSetup();
  if (call.Count() > 0 && !call.IsKeyword(0, "AUTO") && !call.IsKeyword(0, "DEFault")) {
    setup.Range = RangeFor(call.Number(0, {0, Ranges.back(), StandardRange, Kind}));
    setup.AutoRange = false;
  }
  if (call.Count() > 1) {
    const double finest = setup.Range * std::rbegin(Integrations)->Resolution;
    const double usual = ResolutionOf(setup);
    setup.Cycles = CyclesFor(call.Number(1, {finest, setup.Range, usual, Kind}) / setup.Range);
  }
  return setup;
}

double ResolutionOf(const MeasurandSetup& setup) { return setup.Range * ShareResolved(setup.Cycles); }

} // namespace portico::simulator
