#pragma once

#include "simulator/devices/Device.h"
#include "simulator/status/SimulatedConnection.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string_view>

namespace portico::simulator {

/// The simulated instruments of one program: one of each kind, made when it is first connected to and kept from then
/// on, so that the next connection finds it as the last one left it.
class DeviceRack {
public:
  /// All that looks random in its instruments comes from `seed`.
  explicit DeviceRack(std::uint64_t seed) : m_seed(seed) {}

  /// Connects to the instrument of a name as in Device::KindNamed(); a null pointer for one that names no kind. The
  /// rack must outlive the connection.
  std::unique_ptr<SimulatedConnection> Connect(std::string_view name);

private:
  const std::uint64_t m_seed;
  std::map<Device::Kind, std::unique_ptr<Device>> m_devices;
};

} // namespace portico::simulator
