#include "simulator/connection/DeviceRack.h"

#include "simulator/connection/StreamConnection.h"

namespace portico::simulator {

std::unique_ptr<SimulatedConnection> DeviceRack::Connect(std::string_view name) {
  const auto kind = Device::KindNamed(name);
  if (!kind) return nullptr;
  std::unique_ptr<Device>& device = m_devices[*kind];
  if (device == nullptr) device = Device::Make(*kind, m_seed);
  return std::make_unique<StreamConnection>(*device);
}

} // namespace portico::simulator
