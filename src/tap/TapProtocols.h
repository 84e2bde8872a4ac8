#pragma once

#include "drivers/ResourceName.h"
#include "tap/Place.h"
#include "tap/TcpLine.h"

#include <memory>

namespace portico::tap {

/// The way to an instrument that is reached by raw socket, VXI-11 or HiSLIP.
std::unique_ptr<IInstrumentLine> MakeLine(const drivers::ResourceName& instrument, TcpLine::Needs needs);

/// Makes the connections of clients that speak to it in its own protocol. `place` must outlive them.
server::ConnectionFactory MakeFactory(const drivers::ResourceName& instrument, Place& place);

} // namespace portico::tap
