#include "tap/TapProtocols.h"

#include "drivers/hislip/HislipTransport.h"
#include "drivers/sockets/TcpTransport.h"
#include "drivers/vxi11/CorePort.h"
#include "tap/HislipCrossing.h"
#include "tap/RawCrossing.h"
#include "tap/Vxi11Crossing.h"

#include <utility>
#include <variant>

namespace portico::tap {
namespace {

using drivers::LanDeviceAddress;
using drivers::LanProtocol;
using drivers::SocketAddress;

TcpLine::PortFinder KnownPort(std::uint16_t known) {
  return [known](std::uint16_t& port, drivers::TimePoint /*deadline*/) {
    port = known;
    return drivers::DriverResult();
  };
}

/// The port of a VXI-11 server that the name does not tell.
TcpLine::PortFinder AskedPort(const std::string& host, const system::Cancellation* cancellation) {
  const auto connect = [cancellation](const std::string& at, std::uint16_t port) {
    return std::make_unique<drivers::TcpTransport>(at, port, cancellation);
  };
  return [connect, host](std::uint16_t& port, drivers::TimePoint deadline) {
    return drivers::FindCorePort(connect, host, port, deadline);
  };
}

} // namespace

std::unique_ptr<IInstrumentLine> MakeLine(const drivers::ResourceName& instrument, TcpLine::Needs needs) {
  if (const auto* socket = std::get_if<SocketAddress>(&instrument.GetAddress())) {
    return std::make_unique<TcpLine>(socket->Host, KnownPort(socket->Port), std::move(needs));
  }
  const auto& device = std::get<LanDeviceAddress>(instrument.GetAddress());
  if (device.Protocol() == LanProtocol::Hislip) {
    const auto port = device.Port.value_or(drivers::HislipTransport::StandardPort);
    return std::make_unique<TcpLine>(device.Host, KnownPort(port), std::move(needs));
  }
  auto findPort = device.Port ? KnownPort(*device.Port) : AskedPort(device.Host, needs.Cancellation);
  return std::make_unique<TcpLine>(device.Host, std::move(findPort), std::move(needs));
}

server::ConnectionFactory MakeFactory(const drivers::ResourceName& instrument, Place& place) {
  if (instrument.Kind() == drivers::InterfaceKind::Socket) return RawCrossing::Factory(place);
  const auto& device = std::get<LanDeviceAddress>(instrument.GetAddress());
  if (device.Protocol() == LanProtocol::Hislip) return HislipCrossing::Factory(place, device.Device);
  return Vxi11Crossing::Factory(place, device.Device);
}

} // namespace portico::tap
