#include "simulator/server/DeviceRack.h"

#include "simulator/language/Syntax.h"
#include "simulator/server/StreamConnection.h"

#include <algorithm>

namespace portico::simulator {

std::unique_ptr<SimulatedConnection> DeviceRack::Connect(std::string_view kind) {
  std::string name(kind);
  std::transform(name.begin(), name.end(), name.begin(), ToUpper);
  auto found = m_devices.find(name);
  if (found == m_devices.end()) {
    auto made = Device::Make(kind, m_seed);
    if (made == nullptr) return nullptr;
    found = m_devices.emplace(name, std::move(made)).first;
  }
  return std::make_unique<StreamConnection>(*found->second);
}

} // namespace portico::simulator
