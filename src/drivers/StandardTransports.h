#pragma once

#include "drivers/InstrumentDriver.h"
#include "drivers/SimulatedTransport.h"

namespace portico {

/// All transports of the program: raw sockets, and simulated instruments that `factory` makes and that live on
/// `clock`, which must outlive them.
TransportRegistry StandardTransports(SimulatedInstrumentFactory factory, IClock& clock);

} // namespace portico
