#include "server/TestClient.h"

#include <array>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

namespace portico::test {

TestClient::TestClient(std::uint16_t port, bool ipv6) : m_socket(socket(ipv6 ? AF_INET6 : AF_INET, SOCK_STREAM, 0)) {
  const timeval timeout{10, 0};
  setsockopt(m_socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
  setsockopt(m_socket.Get(), SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
  if (ipv6) {
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = htons(port);
    address.sin6_addr = in6addr_loopback;
    m_connected = connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  } else {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    m_connected = connect(m_socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }
}

void TestClient::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

std::size_t TestClient::SendUntilBlocked(std::string_view bytes, std::size_t most) {
  constexpr int Patience = 500; // ms without progress
  std::size_t sent = 0;
  pollfd writable{m_socket.Get(), POLLOUT, 0};
  while (sent < most && poll(&writable, 1, Patience) > 0) {
    const ssize_t count = send(m_socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count > 0) sent += static_cast<std::size_t>(count);
  }
  return sent;
}

bool TestClient::Fill() {
  std::array<char, 65536> buffer{};
  const ssize_t count = recv(m_socket.Get(), buffer.data(), buffer.size(), 0);
  if (count > 0) m_received.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

std::string TestClient::ReadLine() {
  std::size_t end = m_received.find('\n');
  while (end == std::string::npos && Fill()) end = m_received.find('\n');
  return ReadBytes(end == std::string::npos ? m_received.size() : end + 1);
}

std::string TestClient::ReadBytes(std::size_t count) {
  while (m_received.size() < count && Fill()) {
  }
  std::string taken = m_received.substr(0, count);
  m_received.erase(0, taken.size());
  return taken;
}

void TestClient::EndInput() { shutdown(m_socket.Get(), SHUT_WR); }

bool TestClient::ClosedByPeer() {
  char byte = 0;
  return m_received.empty() && recv(m_socket.Get(), &byte, 1, 0) == 0;
}

} // namespace portico::test
