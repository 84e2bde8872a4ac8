#pragma once

#include "simulator/devices/WaveformRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace portico::simulator {

/// What can be set on the oscilloscope, with its defaults.
struct OscilloscopeSettings {
  static constexpr std::size_t ChannelCount = 4;
  /// As a trigger's source the external input, at which there is no signal.
  static constexpr std::size_t External = ChannelCount;

  /// Of the screen.
  static constexpr double DivisionsAcross = 10;

  enum class InputCoupling : std::size_t { Dc, Ac, Ground };

  struct Channel {
    double Scale = 0.5; ///< volts per division
    double Offset = 0;  ///< volts at the centre
    bool Shown = false;
    InputCoupling Coupling = InputCoupling::Dc;
  };
  struct TriggerSetup {
    std::size_t Source = 0;
    double Level = 0; ///< volts
    bool Falling = false;
    bool Automatic = true; ///< sweeps also without a trigger
  };

  OscilloscopeSettings() { Channels.front().Shown = true; }

  std::array<Channel, ChannelCount> Channels;
  double TimeScale = 1E-3; ///< seconds per division
  bool Averaging = false;
  std::int64_t Averages = 8;
  TriggerSetup Trigger;
  std::size_t Source = 0; ///< of what is read
  std::int64_t Points = 1000;
  WaveformFormat Format = WaveformFormat::Byte;
};

} // namespace portico::simulator
