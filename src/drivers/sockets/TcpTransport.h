#pragma once

#include "drivers/ITransport.h"
#include "drivers/sockets/HostLookup.h"
#include "system/Cancellation.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace portico::drivers {

/// A raw TCP connection: bytes only, without any mark of where a message ends. Time-outs run on the real clock.
class TcpTransport final : public ITransport {
public:
  /// `host` is a name, an IPv4 address, or an IPv6 address without brackets. `cancellation` may be null, or must
  /// outlive the transport.
  TcpTransport(std::string host, std::uint16_t port, const system::Cancellation* cancellation = nullptr);
  ~TcpTransport() override;
  TcpTransport(const TcpTransport&) = delete;
  TcpTransport& operator=(const TcpTransport&) = delete;

  /// Tries the addresses of the host in turn. The time left is shared out evenly among those still to be tried, so
  /// that one that swallows all packets does not use up the time of the others.
  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;

private:
  DriverResult Connect(const NetworkAddress& address, TimePoint deadline);
  int SetPatience(std::chrono::milliseconds patience);
  /// The failure that the system's error number stands for.
  DriverResult Failure(int error, DriverStatus otherwise) const;
  DriverResult Failure(DriverStatus status) const { return {status, m_peer}; }

  const std::string m_host;
  const std::uint16_t m_port;
  /// Host and port as the messages give them.
  const std::string m_peer;
  const system::Cancellation* const m_cancellation;
  int m_socket = -1;
  /// How long a read of the socket waits; 0 for ever, as a socket begins.
  std::chrono::milliseconds m_patience{};
};

} // namespace portico::drivers
