#include "simulator/connection/DeviceRack.h"

#include "scpi/Syntax.h"
#include "simulator/connection/StreamConnection.h"

#include <algorithm>

namespace portico::simulator {

std::unique_ptr<SimulatedConnection> DeviceRack::Connect(std::string_view name) {
  const auto kind = Device::KindNamed(name);
  if (!kind) return nullptr;
  std::unique_ptr<Device>& device = m_devices[*kind];
  if (device == nullptr) device = Device::Make(*kind, m_seed);
  return std::make_unique<StreamConnection>(*device);
}

std::unique_ptr<Instrument> DeviceRack::MakeReplay(std::string_view name) const {
  constexpr std::string_view prefix = "REPLAY:";
  const std::string_view start = name.substr(0, prefix.size());
  const bool namesReplay = std::equal(start.begin(), start.end(), prefix.begin(), prefix.end(),
                                      [](char given, char expected) { return scpi::ToUpper(given) == expected; });
  if (!namesReplay || !m_makeReplay) return nullptr;
  return m_makeReplay(std::string(name.substr(prefix.size())));
}

} // namespace portico::simulator
