#include "drivers/sockets/TcpTransport.h"

#include "system/DescriptorWait.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>

namespace portico::drivers {
namespace {

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK; }

} // namespace

TcpTransport::TcpTransport(std::string host, std::uint16_t port, const system::Cancellation* cancellation)
    : m_connector(std::move(host), port, cancellation), m_cancellation(cancellation) {}

DriverResult TcpTransport::Open(TimePoint deadline) {
  Close();
  AboutToWait();
  TcpConnection connection = m_connector.Connect(deadline);
  if (!connection.Result.Succeeded()) return std::move(connection.Result);
  // From here on reads wait in the call itself, which spares a poll for each answer.
  if (::fcntl(connection.Socket.Get(), F_SETFL, 0) != 0) return m_connector.Failure(errno, DriverStatus::ConnectFailed);
  m_socket = std::move(connection.Socket);
  m_patience = {};
  return {};
}

/// Sets how long a read waits; 0, or the system's error number.
int TcpTransport::SetPatience(std::chrono::milliseconds patience) {
  if (patience == m_patience) return 0;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(patience);
  timeval time{};
  time.tv_sec = seconds.count();
  time.tv_usec = std::chrono::duration_cast<std::chrono::microseconds>(patience - seconds).count();
  if (::setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time) != 0) return errno;
  m_patience = patience;
  return 0;
}

void TcpTransport::Close() noexcept { m_socket = system::FileDescriptor(); }

DriverResult TcpTransport::Write(std::string_view bytes, TimePoint deadline) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
      continue;
    }
    int error = errno;
    if (error == EINTR) continue;
    if (WouldBlock(error)) {
      AboutToWait();
      error = system::WaitFor(m_socket.Get(), POLLOUT, deadline, m_cancellation);
    }
    if (error == ETIMEDOUT) return m_connector.Failure(DriverStatus::WriteTimeout);
    if (error != 0) return m_connector.Failure(error, DriverStatus::ConnectionLost);
  }
  return {};
}

Received TcpTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  AboutToWait();
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - TimePoint::clock::now());
    if (left.count() <= 0) return {m_connector.Failure(DriverStatus::ReadTimeout)};
    int error = SetPatience(left);
    if (error == 0) {
      const ssize_t received = ::recv(m_socket.Get(), buffer, size, 0);
      if (received > 0) return {{}, static_cast<std::size_t>(received)};
      if (received == 0) return {m_connector.Failure(DriverStatus::ConnectionClosed)};
      error = errno;
    }
    if (error != EINTR && !WouldBlock(error)) return {m_connector.Failure(error, DriverStatus::ConnectionLost)};
  }
}

} // namespace portico::drivers
