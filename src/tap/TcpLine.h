#pragma once

#include "drivers/sockets/TcpConnector.h"
#include "server/SocketServer.h"
#include "system/Cancellation.h"
#include "tap/IInstrumentLine.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace portico::tap {

/// An instrument on the network, to which connections are made over TCP. Making one takes its time, in which nobody is
/// served.
class TcpLine final : public IInstrumentLine {
public:
  /// All that it needs, which must outlive it.
  struct Needs {
    server::SocketServer& Server; ///< serves the connections
    std::chrono::milliseconds Timeout;
    const system::Cancellation* Cancellation = nullptr; ///< ends the wait
    std::function<void(const std::string&)> Tell;       ///< gets each diagnostic
  };
  /// Tells the port, which may have to be asked for at each connection.
  using PortFinder = std::function<drivers::DriverResult(std::uint16_t& port, drivers::TimePoint deadline)>;

  TcpLine(std::string host, PortFinder findPort, Needs needs);

  bool Connect(std::unique_ptr<server::IServedConnection> end) override;
  bool ConnectFurther(std::unique_ptr<server::IServedConnection> end, std::uint16_t port) override;

private:
  /// False if there is none.
  bool Serve(drivers::TcpConnection connection, std::unique_ptr<server::IServedConnection> end);
  drivers::TimePoint Deadline() const { return drivers::TimePoint::clock::now() + m_needs.Timeout; }

  const std::string m_host;
  const Needs m_needs;
  const PortFinder m_findPort;
  std::optional<drivers::TcpConnector> m_connector; ///< that has made the last connection
};

} // namespace portico::tap
