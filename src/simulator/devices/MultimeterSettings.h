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
  struct TriggerSetup {
    TriggerSource Source = TriggerSource::Immediate;
    std::int64_t Count = 1;
    std::int64_t Samples = 1; ///< for each trigger
    double Delay = 0;         ///< seconds before each reading
    bool AutoDelay = true;    ///< the settings need no delay
  };

  static constexpr std::string_view Transducers[] = {"FRTD", "RTD", "FTHermistor", "THERmistor"};

  MultimeterSettings() {
    for (std::size_t i = 0; i < MeasurandCount; ++i) {
      Setups[i] = MultimeterFunction::Of(static_cast<Measurand>(i)).StandardSetup();
    }
  }

  MeasurandSetup& SetupOf(Measurand of) { return Setups[static_cast<std::size_t>(of)]; }

  Measurand Measured = Measurand::DcVoltage;
  std::array<MeasurandSetup, MeasurandCount> Setups;
  TriggerSetup Trigger;
  std::size_t Transducer = 0; ///< of `Transducers`
  std::size_t TemperatureUnit = 0;
};

} // namespace portico::simulator
