#pragma once

#include "drivers/session/InstrumentDriver.h"
#include "simulator/connection/DeviceRack.h"

#include <memory>

namespace portico::drivers {

/// The driver as the programs have it: all of StandardTransports(), with simulated instruments of its own. These live
/// on the clock of the options and measure the same each time, so that a run on one can be repeated.
/// With a maker the instruments of logs are among them.
std::shared_ptr<IExtendedDriver> StandardDriver(const SessionOptions& options, simulator::ReplayMaker makeReplay = {});

} // namespace portico::drivers
