#include "drivers/sockets/TcpConnector.h"

#include "system/DescriptorWait.h"

#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>

namespace portico::drivers {
namespace {

int PendingError(int socket) {
  int error = 0;
  socklen_t length = sizeof error;
  return ::getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &length) == 0 ? error : errno;
}

} // namespace

TcpConnector::TcpConnector(std::string host, std::uint16_t port, const system::Cancellation* cancellation)
    : m_host(std::move(host)),
      m_port(port),
      m_place(m_host + ", port " + std::to_string(port)),
      m_cancellation(cancellation) {}

TcpConnection TcpConnector::Connect(TimePoint deadline) {
  HostLookup lookup = LookUpHost(m_host, m_port, deadline, m_cancellation);
  TcpConnection connection = {std::move(lookup.Result)};
  for (std::size_t i = 0; i < lookup.Addresses.size(); ++i) {
    const TimePoint now = TimePoint::clock::now();
    const auto shares = static_cast<TimePoint::rep>(lookup.Addresses.size() - i);
    connection = ConnectTo(lookup.Addresses[i], now + (deadline - now) / shares);
    if (connection.Result.Status == DriverStatus::Cancelled) break;
    if (!connection.Result.Succeeded()) continue;
    m_reached = std::move(lookup.Addresses[i]);
    break;
  }
  return connection;
}

TcpConnection TcpConnector::ConnectTo(const NetworkAddress& address, TimePoint deadline) const {
  const auto* peer = reinterpret_cast<const sockaddr*>(address.data());
  system::FileDescriptor socket(::socket(peer->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP));
  if (!socket.IsOpen()) return {Failure(errno, DriverStatus::ConnectFailed)};
  // A command is sent whole by one call, and nothing follows before its answer: holding it back only costs time.
  const int on = 1;
  ::setsockopt(socket.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  if (::connect(socket.Get(), peer, static_cast<socklen_t>(address.size())) != 0) {
    // An interrupted connect goes on by itself, just as one that could not finish at once.
    if (errno != EINPROGRESS && errno != EINTR) return {Failure(errno, DriverStatus::ConnectFailed)};
    const int waitError = system::WaitFor(socket.Get(), POLLOUT, deadline, m_cancellation);
    const int error = waitError != 0 ? waitError : PendingError(socket.Get());
    if (error != 0) return {Failure(error, DriverStatus::ConnectFailed)};
  }
  return {{}, std::move(socket)};
}

DriverResult TcpConnector::Failure(int error, DriverStatus otherwise) const {
  if (error == ECANCELED) return Failure(DriverStatus::Cancelled);
  if (error == ECONNREFUSED) return Failure(DriverStatus::ConnectionRefused);
  if (error == EPIPE) return Failure(DriverStatus::ConnectionClosed);
  if (error == ETIMEDOUT && otherwise == DriverStatus::ConnectFailed) return Failure(DriverStatus::ConnectTimeout);
  return {otherwise, m_place + ", " + std::generic_category().message(error)};
}

} // namespace portico::drivers
