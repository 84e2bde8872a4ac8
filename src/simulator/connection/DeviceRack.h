#pragma once

#include "simulator/devices/Device.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace portico::simulator {

/// Makes the instrument of the conversation that a log holds. Raises `NoInstrument`.
using ReplayMaker = std::function<std::unique_ptr<Instrument>(const std::string& path)>;

/// The simulated instruments of one program: one of each kind, made when it is first connected to and kept from then
/// on, so that the next connection finds it as the last one left it; and those of logs, of which it keeps none.
class DeviceRack {
public:
  /// All that looks random in its instruments comes from `seed`. Without a maker there are none of logs.
  explicit DeviceRack(std::uint64_t seed, ReplayMaker makeReplay = {})
      : m_seed(seed), m_makeReplay(std::move(makeReplay)) {}

  /// Connects to the instrument of a name as in Device::KindNamed(); a null pointer for one that names no kind. The
  /// rack must outlive the connection.
  std::unique_ptr<SimulatedConnection> Connect(std::string_view name);

  /// The instrument of a name that is `replay:` and the path of a log; a null pointer for another name. Raises
  /// `NoInstrument`.
  std::unique_ptr<Instrument> MakeReplay(std::string_view name) const;

private:
  const std::uint64_t m_seed;
  const ReplayMaker m_makeReplay;
  std::map<Device::Kind, std::unique_ptr<Device>> m_devices;
};

} // namespace portico::simulator
