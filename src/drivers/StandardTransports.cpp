#include "drivers/StandardTransports.h"

#include "drivers/SerialTransport.h"
#include "drivers/TcpTransport.h"

namespace portico::drivers {

TransportRegistry StandardTransports(SimulatorConnector connect, IClock& clock) {
  TransportRegistry transports;
  transports[InterfaceKind::Socket] = [](const ResourceName& name) {
    const auto& address = std::get<SocketAddress>(name.GetAddress());
    return std::make_unique<TcpTransport>(address.Host, address.Port);
  };
  transports[InterfaceKind::Serial] = [](const ResourceName& name) {
    return std::make_unique<SerialTransport>(std::get<SerialAddress>(name.GetAddress()));
  };
  transports[InterfaceKind::Simulated] = [connect = std::move(connect), &clock](const ResourceName& name) {
    const auto& address = std::get<SimulatedAddress>(name.GetAddress());
    return std::make_unique<SimulatedTransport>(address.Device, connect, clock);
  };
  return transports;
}

} // namespace portico::drivers
