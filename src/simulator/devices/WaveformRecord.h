#pragma once

#include <cstddef>
#include <string>

namespace portico::simulator {

/// How a record is handed out.
enum class WaveformFormat : std::size_t { Byte, Word, Ascii };

/// What makes seconds and volts of a record.
struct WaveformScale {
  static constexpr double CodesPerDivision = 25;
  static constexpr double CentreCode = 128;

  std::size_t Points;
  double SecondsPerPoint;
  double VoltsPerDivision;
  double CentreVolts;

  /// Points, seconds a point, volts a code, volts at the centre, and the code of the centre.
  std::string Preamble(WaveformFormat format) const;
};

/// What a channel held at the end of an acquisition, with the scale of that time.
struct WaveformRecord {
  WaveformScale Scale;
  std::string Codes; ///< one byte a point

  /// A block of one byte a point, or of two with the more significant first, or volts joined by commas.
  std::string Data(WaveformFormat format) const;
};

} // namespace portico::simulator
