#include "drivers/sockets/TcpTransport.h"

#include "system/DescriptorWait.h"

#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace portico::drivers {
namespace {

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK; }

int PendingError(int socket) {
  int error = 0;
  socklen_t length = sizeof error;
  return ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &length) == 0 ? error : errno;
}

} // namespace

TcpTransport::TcpTransport(std::string host, std::uint16_t port, const system::Cancellation* cancellation)
    : m_host(std::move(host)),
      m_port(port),
      m_peer(m_host + ", port " + std::to_string(port)),
      m_cancellation(cancellation) {}

TcpTransport::~TcpTransport() { Close(); }

DriverResult TcpTransport::Open(TimePoint deadline) {
  Close();
  AboutToWait();
  const HostLookup lookup = LookUpHost(m_host, m_port, deadline);
  DriverResult result = lookup.Result;
  for (std::size_t i = 0; i < lookup.Addresses.size(); ++i) {
    const TimePoint now = TimePoint::clock::now();
    const auto shares = static_cast<TimePoint::rep>(lookup.Addresses.size() - i);
    result = Connect(lookup.Addresses[i], now + (deadline - now) / shares);
    if (result.Succeeded()) break;
    Close();
  }
  return result;
}

DriverResult TcpTransport::Connect(const NetworkAddress& address, TimePoint deadline) {
  const auto* peer = reinterpret_cast<const sockaddr*>(address.data());
  m_socket = ::socket(peer->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP);
  if (m_socket < 0) return Failure(errno, DriverStatus::ConnectFailed);
  // A command is sent whole by one call, and nothing follows before its answer: holding it back only costs time.
  const int on = 1;
  ::setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  if (::connect(m_socket, peer, static_cast<socklen_t>(address.size())) != 0) {
    // An interrupted connect goes on by itself, just as one that could not finish at once.
    if (errno != EINPROGRESS && errno != EINTR) return Failure(errno, DriverStatus::ConnectFailed);
    const int waitError = system::WaitFor(m_socket, POLLOUT, deadline, m_cancellation);
    if (waitError == ETIMEDOUT) return Failure(DriverStatus::ConnectTimeout);
    const int error = waitError != 0 ? waitError : PendingError(m_socket);
    if (error != 0) return Failure(error, DriverStatus::ConnectFailed);
  }
  // From here on reads wait in the call itself, which spares a poll for each answer.
  if (::fcntl(m_socket, F_SETFL, 0) != 0) return Failure(errno, DriverStatus::ConnectFailed);
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
  if (::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time) != 0) return errno;
  m_patience = patience;
  return 0;
}

void TcpTransport::Close() noexcept {
  if (m_socket >= 0) ::close(m_socket);
  m_socket = -1;
}

DriverResult TcpTransport::Write(std::string_view bytes, TimePoint deadline) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(sent));
      continue;
    }
    int error = errno;
    if (error == EINTR) continue;
    if (WouldBlock(error)) {
      AboutToWait();
      error = system::WaitFor(m_socket, POLLOUT, deadline, m_cancellation);
    }
    if (error == ETIMEDOUT) return Failure(DriverStatus::WriteTimeout);
    if (error != 0) return Failure(error, DriverStatus::ConnectionLost);
  }
  return {};
}

Received TcpTransport::Read(char* buffer, std::size_t size, TimePoint deadline) {
  AboutToWait();
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - TimePoint::clock::now());
    if (left.count() <= 0) return {Failure(DriverStatus::ReadTimeout)};
    int error = SetPatience(left);
    if (error == 0) {
      const ssize_t received = ::recv(m_socket, buffer, size, 0);
      if (received > 0) return {{}, static_cast<std::size_t>(received)};
      if (received == 0) return {Failure(DriverStatus::ConnectionClosed)};
      error = errno;
    }
    if (error != EINTR && !WouldBlock(error)) return {Failure(error, DriverStatus::ConnectionLost)};
  }
}

DriverResult TcpTransport::Failure(int error, DriverStatus otherwise) const {
  if (error == ECANCELED) return Failure(DriverStatus::Cancelled);
  if (error == ECONNREFUSED) return Failure(DriverStatus::ConnectionRefused);
  if (error == EPIPE) return Failure(DriverStatus::ConnectionClosed);
  if (error == ETIMEDOUT && otherwise == DriverStatus::ConnectFailed) return Failure(DriverStatus::ConnectTimeout);
  return {otherwise, m_peer + ", " + std::generic_category().message(error)};
}

} // namespace portico::drivers
