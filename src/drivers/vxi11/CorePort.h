#pragma once

#include "drivers/vxi11/RpcChannel.h"

#include <cstdint>
#include <string>

namespace portico::drivers {

/// Asks the portmapper of a host for the port of VXI-11's core channel. `connect` makes the stream to it.
DriverResult FindCorePort(const StreamConnector& connect, const std::string& host, std::uint16_t& port,
                          TimePoint deadline);

} // namespace portico::drivers
