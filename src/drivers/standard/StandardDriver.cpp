#include "drivers/standard/StandardDriver.h"

#include "drivers/standard/StandardTransports.h"
#include "simulator/connection/DeviceRack.h"

namespace portico::drivers {
namespace {

constexpr std::uint64_t SimulatorSeed = 1;

} // namespace

std::shared_ptr<IExtendedDriver> StandardDriver(const SessionOptions& options) {
  const auto connect = [rack = std::make_shared<simulator::DeviceRack>(SimulatorSeed)](const std::string& device) {
    return rack->Connect(device);
  };
  return std::make_shared<InstrumentDriver>(StandardTransports(connect, options.Clock, options.Cancellation), options);
}

} // namespace portico::drivers
