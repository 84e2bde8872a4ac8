#pragma once

#include "drivers/sockets/HostLookup.h"
#include "system/Cancellation.h"
#include "system/FileDescriptor.h"

#include <cstdint>
#include <string>

namespace portico::drivers {

/// A connection that was made, or why there is none.
struct TcpConnection {
  DriverResult Result = {};
  /// Does not block.
  system::FileDescriptor Socket = {};
};

/// Makes TCP connections to one port of one host, for all protocols over TCP, and says what their failures mean.
class TcpConnector {
public:
  /// `host` is a name, an IPv4 address, or an IPv6 address without brackets. `cancellation` may be null, or must
  /// outlive the connector.
  TcpConnector(std::string host, std::uint16_t port, const system::Cancellation* cancellation);

  /// Tries the addresses of the host in turn. The time left is shared out evenly among those still to be tried, so
  /// that one that swallows all packets does not use up the time of the others.
  TcpConnection Connect(TimePoint deadline);
  /// Makes a further connection to the address where the last one was made.
  TcpConnection ConnectAgain(TimePoint deadline) const { return ConnectTo(m_reached, deadline); }

  /// Host and port as messages give them.
  const std::string& Place() const { return m_place; }
  /// The failure that the system's error number stands for.
  DriverResult Failure(int error, DriverStatus otherwise) const;
  DriverResult Failure(DriverStatus status) const { return {status, m_place}; }

private:
  TcpConnection ConnectTo(const NetworkAddress& address, TimePoint deadline) const;

  const std::string m_host;
  const std::uint16_t m_port;
  const std::string m_place;
  const system::Cancellation* const m_cancellation;
  NetworkAddress m_reached;
};

} // namespace portico::drivers
