#include "benchmarks/BareWire.h"

#include <cerrno>
#include <system_error>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace portico {
namespace {

[[noreturn]] void Fail(const char* what) { throw std::system_error(errno, std::generic_category(), what); }

} // namespace

BareWire::BareWire(std::uint16_t port) : m_wire(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(m_wire.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) Fail("connect");
  const int on = 1;
  setsockopt(m_wire.Get(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

BareWire::BareWire(const char* path) : m_wire(open(path, O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  if (!m_wire.IsOpen()) Fail(path);
}

void BareWire::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto sent = write(m_wire.Get(), bytes.data(), bytes.size());
    if (sent <= 0) Fail("write");
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

std::size_t BareWire::Receive(std::size_t filled) {
  const auto count = read(m_wire.Get(), m_received.data() + filled, m_received.size() - filled);
  if (count <= 0) Fail("read");
  return static_cast<std::size_t>(count);
}

} // namespace portico
