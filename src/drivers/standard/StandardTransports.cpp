#include "drivers/standard/StandardTransports.h"

#include "drivers/hislip/HislipTransport.h"
#include "drivers/serial/SerialTransport.h"
#include "drivers/sockets/TcpTransport.h"
#include "drivers/usbtmc/UsbtmcSystem.h"
#include "drivers/usbtmc/UsbtmcTransport.h"
#include "drivers/vxi11/Vxi11Transport.h"

namespace portico::drivers {
namespace {

std::unique_ptr<ITransport> LanDeviceTransport(const LanDeviceAddress& address, IClock& clock,
                                               const system::Cancellation* cancellation) {
  if (address.Protocol() == LanProtocol::Hislip) {
    const std::uint16_t port = address.Port.value_or(HislipTransport::StandardPort);
    return std::make_unique<HislipTransport>(address.Host, port, address.Device, cancellation);
  }
  const auto stream = [cancellation](const std::string& host, std::uint16_t port) {
    return std::make_unique<TcpTransport>(host, port, cancellation);
  };
  return std::make_unique<Vxi11Transport>(address, stream, clock);
}

} // namespace

TransportRegistry StandardTransports(SimulatorConnector connect, IClock& clock,
                                     const system::Cancellation* cancellation) {
  TransportRegistry transports;
  transports[InterfaceKind::Socket] = [cancellation](const ResourceName& name) {
    const auto& address = std::get<SocketAddress>(name.GetAddress());
    return std::make_unique<TcpTransport>(address.Host, address.Port, cancellation);
  };
  transports[InterfaceKind::LanDevice] = [cancellation, &clock](const ResourceName& name) {
    return LanDeviceTransport(std::get<LanDeviceAddress>(name.GetAddress()), clock, cancellation);
  };
  transports[InterfaceKind::Usb] = [usb = std::make_shared<UsbtmcSystem>(), &clock,
                                    cancellation](const ResourceName& name) {
    return std::make_unique<UsbtmcTransport>(std::get<UsbAddress>(name.GetAddress()), *usb, clock, cancellation);
  };
  transports[InterfaceKind::Serial] = [cancellation](const ResourceName& name) {
    return std::make_unique<SerialTransport>(std::get<SerialAddress>(name.GetAddress()), cancellation);
  };
  transports[InterfaceKind::Simulated] = [connect = std::move(connect), &clock,
                                          cancellation](const ResourceName& name) {
    const auto& address = std::get<SimulatedAddress>(name.GetAddress());
    return std::make_unique<SimulatedTransport>(address.Device, connect, clock, cancellation);
  };
  return transports;
}

} // namespace portico::drivers
