#pragma once

#include "drivers/ITransport.h"
#include "drivers/sockets/TcpConnector.h"
#include "system/Cancellation.h"
#include "system/FileDescriptor.h"

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

  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;

private:
  int SetPatience(std::chrono::milliseconds patience);

  TcpConnector m_connector;
  const system::Cancellation* const m_cancellation;
  system::FileDescriptor m_socket;
  /// How long a read of the socket waits; 0 for ever, as a socket begins.
  std::chrono::milliseconds m_patience{};
};

} // namespace portico::drivers
