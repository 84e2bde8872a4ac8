#include "simulator/devices/WaveformRecord.h"

#include "simulator/language/ResponseFormat.h"

#include <array>
#include <vector>

namespace portico::simulator {
namespace {

/// How much larger the codes of words are than those of bytes.
constexpr double WordFactor = 256;

} // namespace

std::string WaveformScale::Preamble(WaveformFormat format) const {
  const double factor = format == WaveformFormat::Word ? WordFactor : 1;
  const double voltsPerCode = VoltsPerDivision / CodesPerDivision / factor;
  return std::to_string(Points) + ',' +
         FormatReals(std::array{SecondsPerPoint, voltsPerCode, CentreVolts, CentreCode * factor});
}

std::string WaveformRecord::Data(WaveformFormat format) const {
  if (format == WaveformFormat::Byte) return FormatBlock(Codes);
  if (format == WaveformFormat::Word) {
    std::string words;
    for (const char code : Codes) words.append({code, '\0'});
    return FormatBlock(words);
  }
  std::vector<double> volts;
  for (const char code : Codes) {
    const double divisions =
        (static_cast<unsigned char>(code) - WaveformScale::CentreCode) / WaveformScale::CodesPerDivision;
    volts.push_back(Scale.CentreVolts + divisions * Scale.VoltsPerDivision);
  }
  return FormatReals(volts);
}

} // namespace portico::simulator
