#pragma once

#include "drivers/ResourceName.h"
#include "tap/Place.h"
#include "tap/TapOptions.h"
#include "tap/TcpLine.h"

#include <memory>

namespace portico::tap {

/// The way to an instrument for clients that speak this protocol, its own or another.
std::unique_ptr<IInstrumentLine> MakeLine(const drivers::ResourceName& instrument, Protocol client,
                                          TcpLine::Needs needs);

/// Makes the connections of those clients. `place` must outlive them.
server::ConnectionFactory MakeFactory(const drivers::ResourceName& instrument, Protocol client, Place& place);

} // namespace portico::tap
