#include "drivers/sockets/TcpTransport.h"

#include "system/DescriptorWait.h"

#include <cerrno>
#include <cstddef>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <utility>

namespace portico::drivers {
namespace {

/// Connections that have ended and hold something unread.
constexpr std::size_t MostSetAside = 8;

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK; }

} // namespace

TcpTransport::TcpTransport(std::string host, std::uint16_t port, const system::Cancellation* cancellation)
    : m_connector(std::move(host), port, cancellation), m_cancellation(cancellation) {}

DriverResult TcpTransport::Open(TimePoint deadline) {
  const bool anew = !m_streams.empty();
  SetAside();
  AboutToWait();
  TcpConnection connection = m_connector.Connect(deadline);
  if (connection.Result.Succeeded()) m_streams.push_back({std::move(connection.Socket), anew});
  return std::move(connection.Result);
}

void TcpTransport::SetAside() {
  if (m_streams.empty()) return;
  int unread = 0;
  if (::ioctl(m_streams.back().Socket.Get(), FIONREAD, &unread) != 0 || unread <= 0) m_streams.pop_back();
  // One that ends its connection behind each answer, while nobody reads them, is not to use up the descriptors.
  if (m_streams.size() > MostSetAside) m_streams.pop_front();
}

void TcpTransport::Close() noexcept { m_streams.clear(); }

bool TcpTransport::Stands() {
  pollfd entry = {m_streams.back().Socket.Get(), POLLRDHUP, 0};
  return ::poll(&entry, 1, 0) == 0;
}

DriverResult TcpTransport::Write(std::string_view bytes, TimePoint deadline) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(m_streams.back().Socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
      continue;
    }
    int error = errno;
    if (error == EINTR) continue;
    if (WouldBlock(error)) {
      AboutToWait();
      error = system::WaitFor(m_streams.back().Socket.Get(), POLLOUT, deadline, m_cancellation);
    }
    if (error == ETIMEDOUT) return m_connector.Failure(DriverStatus::WriteTimeout);
    if (error != 0) return m_connector.Failure(error, DriverStatus::ConnectionLost);
  }
  return {};
}

Received TcpTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  AboutToWait();
  for (;;) {
    Stream& stream = m_streams.front();
    // An answer is hardly ever there already, so a look at the socket before this wait would be in vain.
    int error = system::WaitFor(stream.Socket.Get(), POLLIN, deadline, m_cancellation);
    if (error == ETIMEDOUT) return {m_connector.Failure(DriverStatus::ReadTimeout)};
    if (error == 0) {
      const ssize_t received = ::recv(stream.Socket.Get(), buffer, size, 0);
      if (received > 0) return {{}, static_cast<std::size_t>(received), false, std::exchange(stream.Anew, false)};
      error = received == 0 ? EPIPE : errno;
    }
    if (error == EINTR || WouldBlock(error)) continue;
    if (m_streams.size() == 1 || error == ECANCELED) return {m_connector.Failure(error, DriverStatus::ConnectionLost)};
    m_streams.pop_front();
  }
}

} // namespace portico::drivers
