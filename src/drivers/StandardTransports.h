#pragma once

#include "drivers/InstrumentDriver.h"
#include "drivers/SimulatedTransport.h"

namespace portico::drivers {

/// All transports of the program: raw sockets, serial lines, and simulated instruments that `connect` reaches and that
/// live on `clock`, which must outlive them. The instruments live as long as the registry.
TransportRegistry StandardTransports(SimulatorConnector connect, IClock& clock);

} // namespace portico::drivers
