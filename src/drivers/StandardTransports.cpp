#include "drivers/StandardTransports.h"

#include "drivers/TcpTransport.h"

namespace portico::drivers {

TransportRegistry StandardTransports(SimulatorConnector connect, IClock& clock) {
  TransportRegistry transports;
  transports[InterfaceKind::Socket] = [](const ResourceName& name) {
    const auto& address = std::get<SocketAddress>(name.GetAddress());
    return std::make_unique<TcpTransport>(address.host, address.port);
  };
  transports[InterfaceKind::Simulated] = [connect = std::move(connect), &clock](const ResourceName& name) {
    const auto& address = std::get<SimulatedAddress>(name.GetAddress());
    return std::make_unique<SimulatedTransport>(address.device, connect, clock);
  };
  return transports;
}

} // namespace portico::drivers
