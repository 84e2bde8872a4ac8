#include "support/doubles/ScriptedServer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace portico::test {
namespace {

constexpr int Backlog = 16;

/// A loopback address with port 0 (any) of either family.
union LoopbackAddress {
  sockaddr any;
  sockaddr_in v4;
  sockaddr_in6 v6;

  explicit LoopbackAddress(bool ipv6) : v6() {
    if (ipv6) {
      v6.sin6_family = AF_INET6;
      v6.sin6_addr = in6addr_loopback;
    } else {
      v4.sin_family = AF_INET;
      v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    }
  }

  socklen_t Length() const { return any.sa_family == AF_INET6 ? sizeof v6 : sizeof v4; }
  std::uint16_t Port() const { return ntohs(any.sa_family == AF_INET6 ? v6.sin6_port : v4.sin_port); }
};

/// Listens on a free port, which it writes to `port`; -1 if that is not possible.
int Listen(bool ipv6, int backlog, std::uint16_t& port) {
  LoopbackAddress address(ipv6);
  const int listener = ::socket(address.any.sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (listener < 0) return -1;
  socklen_t length = address.Length();
  const bool listening = ::bind(listener, &address.any, length) == 0 && ::listen(listener, backlog) == 0 &&
                         ::getsockname(listener, &address.any, &length) == 0;
  if (!listening) {
    ::close(listener);
    return -1;
  }
  port = address.Port();
  return listener;
}

void CloseSocket(int& socket) {
  if (socket >= 0) ::close(socket);
  socket = -1;
}

} // namespace

ScriptedServer::ScriptedServer(InstrumentScript script, const Options& options)
    : m_options(options), m_script(std::move(script)) {
  m_listener = Listen(m_options.ipv6, m_options.deaf ? 0 : Backlog, m_port);
  if (m_listener < 0 || ::pipe2(m_wakePipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
  if (!m_options.deaf) m_thread = std::thread([this] { Serve(); });
}

ScriptedServer::~ScriptedServer() {
  {
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
  }
  Wake();
  if (m_thread.joinable()) m_thread.join();
  for (Client& client : m_clients) CloseSocket(client.socket);
  CloseSocket(m_listener);
  CloseSocket(m_wakePipe[0]);
  CloseSocket(m_wakePipe[1]);
}

bool ScriptedServer::HasIpv6() {
  std::uint16_t port = 0;
  int listener = Listen(true, Backlog, port);
  const bool listening = listener >= 0;
  CloseSocket(listener);
  return listening;
}

std::string ScriptedServer::ResourceName() const {
  return std::string("TCPIP::") + (m_options.ipv6 ? "[::1]" : "127.0.0.1") + "::" + std::to_string(m_port) + "::SOCKET";
}

void ScriptedServer::On(const std::string& command, Reaction reaction) {
  const std::lock_guard lock(m_mutex);
  m_script[command] = std::move(reaction);
}

std::string ScriptedServer::Received() const {
  const std::lock_guard lock(m_mutex);
  return m_received;
}

std::size_t ScriptedServer::Connections() const {
  const std::lock_guard lock(m_mutex);
  return m_connections;
}

void ScriptedServer::WaitForReceived(const std::string& bytes) const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_received.ends_with(bytes); });
}

void ScriptedServer::WaitForSilence() const {
  std::unique_lock lock(m_mutex);
  const auto silent = [](const Client& client) { return client.output.empty() && !client.closing; };
  m_changed.wait(lock, [&] { return std::all_of(m_clients.begin(), m_clients.end(), silent); });
}

void ScriptedServer::WaitForConnections(std::size_t count) const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_connections >= count; });
}

void ScriptedServer::WaitForNoClient() const {
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_connections > 0 && m_clients.empty(); });
}

void ScriptedServer::Send(const std::string& bytes) {
  {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return !m_clients.empty(); });
    m_clients.back().output += bytes;
  }
  Wake();
}

void ScriptedServer::DropClients() {
  {
    const std::lock_guard lock(m_mutex);
    for (Client& client : m_clients) client.closing = true;
  }
  Wake();
  std::unique_lock lock(m_mutex);
  m_changed.wait(lock, [&] { return m_clients.empty(); });
}

void ScriptedServer::StopListening() {
  std::unique_lock lock(m_mutex);
  m_refusing = true;
  Wake();
  m_changed.wait(lock, [&] { return m_listener < 0; });
}

void ScriptedServer::Wake() {
  const char byte = 0;
  // A full pipe wakes the thread just as well.
  [[maybe_unused]] const ssize_t written = ::write(m_wakePipe[1], &byte, 1);
}

void ScriptedServer::Serve() {
  std::unique_lock lock(m_mutex);
  while (!m_stopping) {
    // Here, not in StopListening(), as nobody may close what this thread waits for.
    if (m_refusing) CloseSocket(m_listener);
    m_changed.notify_all();
    std::vector<pollfd> entries = {{m_wakePipe[0], POLLIN, 0}, {m_listener, POLLIN, 0}};
    for (const Client& client : m_clients) {
      const bool writes = client.closing || !client.output.empty() || !client.refrain.empty();
      entries.push_back({client.socket, static_cast<short>(POLLIN | (writes ? POLLOUT : 0)), 0});
    }
    lock.unlock();
    ::poll(entries.data(), entries.size(), -1);
    std::array<char, 64> wakes = {};
    [[maybe_unused]] const ssize_t drained = ::read(m_wakePipe[0], wakes.data(), wakes.size());
    lock.lock();
    for (std::size_t i = 0; i < m_clients.size() && i + 2 < entries.size(); ++i) {
      const short events = entries[i + 2].revents;
      const bool alive = ((events & (POLLIN | POLLHUP | POLLERR)) == 0 || ReadFrom(m_clients[i])) &&
                         ((events & POLLOUT) == 0 || WriteTo(m_clients[i]));
      if (!alive) CloseSocket(m_clients[i].socket);
    }
    std::erase_if(m_clients, [](const Client& client) { return client.socket < 0; });
    if ((entries[1].revents & POLLIN) != 0) Accept();
  }
}

void ScriptedServer::Accept() {
  const int socket = ::accept4(m_listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
  if (socket < 0) return;
  const int on = 1;
  ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  m_clients.push_back({socket, {}, {}, {}, false});
  ++m_connections;
}

bool ScriptedServer::ReadFrom(Client& client) {
  std::array<char, 4096> bytes = {};
  const ssize_t count = ::recv(client.socket, bytes.data(), bytes.size(), 0);
  if (count < 0) return errno == EAGAIN || errno == EINTR;
  if (count == 0) return false;
  m_received.append(bytes.data(), static_cast<std::size_t>(count));
  client.input.append(bytes.data(), static_cast<std::size_t>(count));
  for (std::string command; TakeCommand(client.input, command);) React(client, command);
  return true;
}

bool ScriptedServer::WriteTo(Client& client) {
  if (client.output.empty() && !client.closing) client.output = client.refrain;
  if (client.output.empty()) return !client.closing;
  const ssize_t count = ::send(client.socket, client.output.data(), client.output.size(), MSG_NOSIGNAL);
  if (count < 0) return errno == EAGAIN || errno == EINTR;
  client.output.erase(0, static_cast<std::size_t>(count));
  return !client.closing || !client.output.empty();
}

void ScriptedServer::React(Client& client, const std::string& command) {
  const auto found = m_script.find(command);
  if (found == m_script.end()) return;
  const Reaction& reaction = found->second;
  switch (reaction.kind) {
  case Reaction::Kind::Answer:
  case Reaction::Kind::Part:
    client.output += reaction.text;
    break;
  case Reaction::Kind::Silence:
    break;
  case Reaction::Kind::Close:
    client.output += reaction.text;
    client.closing = true;
    break;
  case Reaction::Kind::Endless:
    client.refrain = reaction.text;
    break;
  }
}

} // namespace portico::test
