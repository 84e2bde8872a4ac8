#include "drivers/standard/StandardDriver.h"

#include "drivers/standard/StandardTransports.h"
#include "simulator/connection/RackClient.h"

#include <utility>

namespace portico::drivers {
namespace {

constexpr std::uint64_t SimulatorSeed = 1;

} // namespace

std::shared_ptr<IExtendedDriver> StandardDriver(const SessionOptions& options, simulator::ReplayMaker makeReplay) {
  auto rack = std::make_shared<simulator::DeviceRack>(SimulatorSeed, std::move(makeReplay));
  const simulator::RackClient client(std::move(rack)); // of which each transport has a copy
  return std::make_shared<InstrumentDriver>(StandardTransports(client, options.Clock, options.Cancellation), options);
}

} // namespace portico::drivers
