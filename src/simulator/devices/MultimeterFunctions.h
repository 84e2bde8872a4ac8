#pragma once

#include "simulator/language/Call.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace portico::simulator {

/// What the multimeter can measure, as it stands in the table of MultimeterFunction::Of().
enum class Measurand : std::size_t {
  DcVoltage,
  AcVoltage,
  DcCurrent,
  AcCurrent,
  Resistance,
  FourWireResistance,
  Frequency,
  Temperature,
};
constexpr std::size_t MeasurandCount = 8;

/// What `CONFigure` and `SENSe` set for one function.
struct MeasurandSetup {
  double Range = 0;
  bool AutoRange = true;
  double Cycles = 1; ///< of the power line, for which a reading is integrated
};

/// One function of the meter, and the source that it finds at its terminals.
struct MultimeterFunction {
  static constexpr double LineFrequency = 50; ///< Hz

  std::string_view Name;
  std::span<const double> Ranges;
  double StandardRange;
  double StandardCycles;
  double Source;
  Quantity Kind;
  std::uint16_t Overload; ///< bit of the questionable status register

  static const MultimeterFunction& Of(Measurand measurand);
  /// The function of a name such as `VOLT:DC` or `RESISTANCE`. Throws ScpiError if there is none.
  static Measurand Named(std::string name);

  std::string ShortName() const;
  MeasurandSetup StandardSetup() const { return {StandardRange, true, StandardCycles}; }
  Limits RangeLimits() const { return {Ranges.front(), Ranges.back(), StandardRange, Kind}; }
  /// The smallest range that holds the value.
  double RangeFor(double value) const;
  /// From the parameters `[<range>|AUTO[,<resolution>]]`.
  MeasurandSetup SetupFrom(const Call& call) const;
};

/// What a reading resolves, in the unit of the range.
double ResolutionOf(const MeasurandSetup& setup);

} // namespace portico::simulator
