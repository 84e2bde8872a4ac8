#pragma once

#include "drivers/session/InstrumentDriver.h"
#include "drivers/simulated/SimulatedTransport.h"
#include "system/Cancellation.h"

namespace portico::drivers {

/// All transports of the program: raw sockets, VXI-11, HiSLIP, USBTMC, serial lines, and simulated instruments that
/// `connect` reaches and that live on `clock`, which must outlive them. The instruments live as long as the registry.
/// `cancellation` may be null, or must outlive the transports.
TransportRegistry StandardTransports(SimulatorConnector connect, IClock& clock,
                                     const system::Cancellation* cancellation = nullptr);

} // namespace portico::drivers
