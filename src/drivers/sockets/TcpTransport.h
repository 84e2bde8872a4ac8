#pragma once

#include "drivers/ITransport.h"
#include "drivers/sockets/TcpConnector.h"
#include "system/Cancellation.h"
#include "system/FileDescriptor.h"

#include <cstdint>
#include <deque>
#include <string>

namespace portico::drivers {

/// A raw TCP connection: bytes only, without any mark of where a message ends. Time-outs run on the real clock.
///
/// Of a connection that the peer has ended, and for which Open() has made another, what came before its end is still
/// read; the first bytes of the next one then begin a message.
class TcpTransport final : public ITransport {
public:
  /// `host` is a name, an IPv4 address, or an IPv6 address without brackets. `cancellation` may be null, or must
  /// outlive the transport.
  TcpTransport(std::string host, std::uint16_t port, const system::Cancellation* cancellation = nullptr);

  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;
  bool Stands() override;

private:
  struct Stream {
    system::FileDescriptor Socket;
    /// Nothing of it has been read, and another one came before it.
    bool Anew = false;
  };

  /// Keeps the connection that was made last, which has ended, as long as it holds something unread.
  void SetAside();

  TcpConnector m_connector;
  const system::Cancellation* const m_cancellation;
  /// The last one is the connection, if there is any; those before it have ended.
  std::deque<Stream> m_streams;
};

} // namespace portico::drivers
