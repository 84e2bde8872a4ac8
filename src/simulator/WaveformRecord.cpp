#include "simulator/WaveformRecord.h"

#include "simulator/ResponseFormat.h"

#include <array>

namespace portico::simulator {

std::string WaveformScale::Preamble() const {
  const double voltsPerCode = voltsPerDivision / kCodesPerDivision;
  return std::to_string(points) + ',' +
         FormatReals(std::array{secondsPerPoint, voltsPerCode, centreVolts, kCentreCode});
}

std::string WaveformRecord::Data() const { return FormatBlock(codes); }

} // namespace portico::simulator
