#pragma once

#include "simulator/devices/MultimeterFunctions.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace portico::simulator {

/// What can be set on the multimeter, with its defaults.
struct MultimeterSettings {
  enum class TriggerSource : std::size_t { Immediate, Bus, External };

  /// How often and when a measurement takes its readings.
  struct Trigger {
    TriggerSource source = TriggerSource::Immediate;
    std::int64_t count = 1;
    std::int64_t samples = 1; ///< for each trigger
    double delay = 0;         ///< seconds before each reading
    bool autoDelay = true;    ///< none is needed
  };

  static constexpr std::string_view Transducers[] = {"FRTD", "RTD", "FTHermistor", "THERmistor"};

  MultimeterSettings() {
    for (std::size_t i = 0; i < MeasurandCount; ++i) {
      setups[i] = MultimeterFunction::Of(static_cast<Measurand>(i)).StandardSetup();
    }
  }

  MeasurandSetup& SetupOf(Measurand of) { return setups[static_cast<std::size_t>(of)]; }

  Measurand measurand = Measurand::DcVoltage;
  std::array<MeasurandSetup, MeasurandCount> setups;
  Trigger trigger;
  std::size_t transducer = 0; ///< of `Transducers`
  std::size_t temperatureUnit = 0;
};

} // namespace portico::simulator
