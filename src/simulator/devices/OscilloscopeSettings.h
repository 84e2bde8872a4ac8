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

  enum class Coupling : std::size_t { Dc, Ac, Ground };

  struct Channel {
    double scale = 0.5; ///< volts per division
    double offset = 0;  ///< volts at the centre
    bool shown = false;
    Coupling coupling = Coupling::Dc;
  };
  struct Trigger {
    std::size_t source = 0;
    double level = 0; ///< volts
    bool falling = false;
    bool automatic = true; ///< sweeps also without a trigger
  };

  OscilloscopeSettings() { channels.front().shown = true; }

  std::array<Channel, ChannelCount> channels;
  double timeScale = 1E-3; ///< seconds per division
  bool averaging = false;
  std::int64_t averages = 8;
  Trigger trigger;
  std::size_t source = 0; ///< of what is read
  std::int64_t points = 1000;
  WaveformFormat format = WaveformFormat::Byte;
};

} // namespace portico::simulator
