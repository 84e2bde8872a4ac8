#include "server/SocketServer.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace portico::server {
namespace {

using system::FileDescriptor;

constexpr std::size_t MostClients = 256;
constexpr auto AcceptPause = std::chrono::milliseconds(100);

using Addresses = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

Addresses Resolve(const std::string& address, std::uint16_t port) {
  addrinfo hints{};
  hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV | AI_PASSIVE;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) {
    throw std::invalid_argument("'" + address + "' is not an IPv4 or IPv6 address such as 127.0.0.1 or ::1");
  }
  return {found, &freeaddrinfo};
}

std::uint16_t BoundPort(int descriptor) {
  sockaddr_storage bound{};
  socklen_t size = sizeof bound;
  getsockname(descriptor, reinterpret_cast<sockaddr*>(&bound), &size);
  const in_port_t port = bound.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6&>(bound).sin6_port
                                                     : reinterpret_cast<const sockaddr_in&>(bound).sin_port;
  return ntohs(port);
}

void SetOption(int descriptor, int level, int option) {
  const int on = 1;
  setsockopt(descriptor, level, option, &on, sizeof on);
}

/// The time to wait for `next`, which a poll for ever (none) and a poll at once (past) are cases of.
std::optional<timespec> Timeout(std::optional<TimePoint> next, TimePoint now) {
  using std::chrono::nanoseconds;
  if (!next) return std::nullopt;
  const auto wait = std::chrono::duration_cast<nanoseconds>(std::max(*next - now, TimePoint::duration::zero()));
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(wait);
  return timespec{seconds.count(), (wait - nanoseconds(seconds)).count()};
}

} // namespace

SocketServer::SocketServer(std::vector<Listener> listeners) {
  for (Listener& listener : listeners) Listen(std::move(listener));
}

void SocketServer::Listen(Listener listener) { m_listeners.push_back(Open(std::move(listener))); }

SocketServer::Opened SocketServer::Open(Listener listener) {
  const Addresses address = Resolve(listener.Address, listener.Port);
  FileDescriptor opened(socket(address->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (opened.IsOpen()) SetOption(opened.Get(), SOL_SOCKET, SO_REUSEADDR);
  if (!opened.IsOpen() || bind(opened.Get(), address->ai_addr, address->ai_addrlen) != 0 ||
      listen(opened.Get(), SOMAXCONN) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot listen on " + EndpointOf(listener));
  }
  listener.Port = BoundPort(opened.Get());
  return {std::move(listener), std::move(opened)};
}

std::string SocketServer::Endpoint(std::size_t listener) const { return EndpointOf(m_listeners[listener]); }

std::string SocketServer::EndpointOf(const Listener& listener) {
  const bool ipv6 = listener.Address.find(':') != std::string::npos;
  return (ipv6 ? '[' + listener.Address + ']' : listener.Address) + ':' + std::to_string(listener.Port);
}

void SocketServer::Add(FileDescriptor wire, std::unique_ptr<IServedConnection> connection) {
  m_clients.push_back(std::make_unique<ClientConnection>(std::move(wire), std::move(connection)));
}

void SocketServer::Run() {
  std::vector<pollfd> polled;
  std::vector<short> events;
  for (;;) {
    TimePoint now = std::chrono::steady_clock::now();
    const bool accepting = m_clients.size() < MostClients && now >= m_acceptAgain;
    polled.assign({{m_wakeUp.Descriptor(), POLLIN, 0}});
    for (const Opened& listener : m_listeners) {
      polled.push_back({accepting ? listener.Socket.Get() : -1, POLLIN, 0});
    }
    const std::size_t firstClient = polled.size();
    for (const auto& client : m_clients) {
      const int wanted = (client->WantsInput() ? POLLIN | POLLRDHUP : 0) | (client->WantsOutput() ? POLLOUT : 0);
      polled.push_back({client->Descriptor(), static_cast<short>(wanted), 0});
    }
    const auto timeout = Timeout(NextEvent(), now);
    if (ppoll(polled.data(), polled.size(), timeout ? &*timeout : nullptr, nullptr) < 0 && errno != EINTR) {
      throw std::system_error(errno, std::generic_category(), "cannot wait for clients");
    }
    if (polled[0].revents != 0) break;
    now = std::chrono::steady_clock::now();
    events.clear();
    for (std::size_t i = firstClient; i < polled.size(); ++i) events.push_back(polled[i].revents);
    Serve(now, events);
    for (std::size_t i = 1; i < firstClient; ++i) {
      if (polled[i].revents != 0) Accept(m_listeners[i - 1], now);
    }
  }
  m_clients.clear();
}

void SocketServer::Serve(TimePoint now, const std::vector<short>& events) {
  for (std::size_t i = 0; i < events.size(); ++i) {
    ClientConnection& client = *m_clients[i];
    const auto next = client.NextEvent();
    if ((events[i] & POLLIN) != 0 || (events[i] & POLLOUT) != 0 || (next && *next <= now)) {
      const bool ended = (events[i] & (POLLRDHUP | POLLHUP | POLLERR)) != 0;
      client.Exchange((events[i] & POLLIN) != 0, now, ended);
    } else if (events[i] != 0) {
      client.Break(now);
    }
  }
  std::erase_if(m_clients, [](const auto& client) { return client->Finished(); });
}

std::optional<TimePoint> SocketServer::NextEvent() const {
  std::optional<TimePoint> next;
  const auto consider = [&next](std::optional<TimePoint> event) {
    if (event && (!next || *event < *next)) next = event;
  };
  for (const auto& client : m_clients) consider(client->NextEvent());
  if (m_acceptAgain > TimePoint{}) consider(m_acceptAgain);
  return next;
}

/// One at a time: whoever came before is looked at first, and may have gone already.
void SocketServer::Accept(const Opened& listener, TimePoint now) {
  m_acceptAgain = {};
  if (m_clients.size() >= MostClients) return;
  FileDescriptor accepted(accept4(listener.Socket.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  if (accepted.IsOpen()) {
    SetOption(accepted.Get(), IPPROTO_TCP, TCP_NODELAY);
    Add(std::move(accepted), listener.Factory(listener.Port));
  } else if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
    m_acceptAgain = now + AcceptPause;
  }
}

void SocketServer::Stop() noexcept { m_wakeUp.Wake(); }

} // namespace portico::server
