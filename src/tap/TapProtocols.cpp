#include "tap/TapProtocols.h"

#include "drivers/hislip/HislipTransport.h"
#include "drivers/sockets/TcpTransport.h"
#include "drivers/standard/StandardTransports.h"
#include "drivers/vxi11/CorePort.h"
#include "simulator/connection/DeviceRack.h"
#include "simulator/hislip/HislipConnection.h"
#include "simulator/vxi11/ServedVxi11.h"
#include "tap/BridgeLine.h"
#include "tap/HislipCrossing.h"
#include "tap/RawCrossing.h"
#include "tap/RelayedInstrument.h"
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

/// Makes the transport of any instrument; simulated ones live as long as the function.
InstrumentBridge::TransportMaker AnyTransport() {
  constexpr std::uint64_t simulatorSeed = 1;
  const auto connect = [rack = std::make_shared<simulator::DeviceRack>(simulatorSeed)](const std::string& device) {
    return rack->Connect(device);
  };
  return
      [connect](const drivers::ResourceName& name, drivers::IClock& clock, const system::Cancellation* cancellation) {
        return drivers::StandardTransports(connect, clock, cancellation).at(name.Kind())(name);
      };
}

} // namespace

std::unique_ptr<IInstrumentLine> MakeLine(const drivers::ResourceName& instrument, Protocol client,
                                          TcpLine::Needs needs) {
  if (client != ProtocolOf(instrument)) {
    const auto marks = client == Protocol::Raw ? drivers::Marks::None : drivers::Marks::Ends;
    return std::make_unique<BridgeLine>(instrument, AnyTransport(), marks, needs.Server, needs.Timeout, needs.Tell);
  }
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

server::ConnectionFactory MakeFactory(const drivers::ResourceName& instrument, Protocol client, Place& place) {
  if (client == Protocol::Raw) return RawCrossing::Factory(place);
  if (client != ProtocolOf(instrument)) {
    auto relayed = std::make_shared<RelayedInstrument>(place);
    return client == Protocol::Hislip ? simulator::HislipConnection::Factory(std::move(relayed))
                                      : simulator::ServedVxi11::Factory(std::move(relayed));
  }
  const auto& device = std::get<LanDeviceAddress>(instrument.GetAddress());
  if (client == Protocol::Hislip) return HislipCrossing::Factory(place, device.Device);
  return Vxi11Crossing::Factory(place, device.Device);
}

} // namespace portico::tap
