#include "TestClient.h"

#include <array>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

namespace portico::simulator {

TestClient::TestClient(std::uint16_t port, bool ipv6) : socket_(socket(ipv6 ? AF_INET6 : AF_INET, SOCK_STREAM, 0)) {
  const timeval timeout{10, 0};
  setsockopt(socket_.Get(), SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
  setsockopt(socket_.Get(), SOL_SOCKET, SO_SNDTIMEO, &timeout, sizeof timeout);
  if (ipv6) {
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_port = htons(port);
    address.sin6_addr = in6addr_loopback;
    connected_ = connect(socket_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  } else {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connected_ = connect(socket_.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  }
}

void TestClient::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(socket_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

std::size_t TestClient::SendUntilBlocked(std::string_view bytes, std::size_t most) {
  constexpr int kPatience = 500; // ms without progress
  std::size_t sent = 0;
  pollfd writable{socket_.Get(), POLLOUT, 0};
  while (sent < most && poll(&writable, 1, kPatience) > 0) {
    const ssize_t count = send(socket_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count > 0) sent += static_cast<std::size_t>(count);
  }
  return sent;
}

bool TestClient::Fill() {
  std::array<char, 65536> buffer{};
  const ssize_t count = recv(socket_.Get(), buffer.data(), buffer.size(), 0);
  if (count > 0) received_.append(buffer.data(), static_cast<std::size_t>(count));
  return count > 0;
}

std::string TestClient::ReadLine() {
  std::size_t end = received_.find('\n');
  while (end == std::string::npos && Fill()) end = received_.find('\n');
  return ReadBytes(end == std::string::npos ? received_.size() : end + 1);
}

std::string TestClient::ReadBytes(std::size_t count) {
  while (received_.size() < count && Fill()) {
  }
  std::string taken = received_.substr(0, count);
  received_.erase(0, taken.size());
  return taken;
}

void TestClient::EndInput() { shutdown(socket_.Get(), SHUT_WR); }

bool TestClient::ClosedByPeer() {
  char byte = 0;
  return received_.empty() && recv(socket_.Get(), &byte, 1, 0) == 0;
}

} // namespace portico::simulator
