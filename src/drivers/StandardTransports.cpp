#include "drivers/StandardTransports.h"

#include "drivers/TcpTransport.h"

namespace portico {

TransportRegistry StandardTransports(SimulatedInstrumentFactory factory, IClock& clock) {
  TransportRegistry transports;
  transports[InterfaceKind::Socket] = [](const ResourceName& name) {
    const auto& address = std::get<SocketAddress>(name.GetAddress());
    return std::make_unique<TcpTransport>(address.host, address.port);
  };
  transports[InterfaceKind::Simulated] = [factory = std::move(factory), &clock](const ResourceName& name) {
    const auto& address = std::get<SimulatedAddress>(name.GetAddress());
    return std::make_unique<SimulatedTransport>(address.device, factory, clock);
  };
  return transports;
}

} // namespace portico
