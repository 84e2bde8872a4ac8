#include "tap/LocalWire.h"

#include "system/DescriptorWait.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <system_error>

#include <poll.h>
#include <sys/socket.h>

namespace portico::tap {
namespace {

using system::Cancellation;
using system::FileDescriptor;

constexpr std::size_t MostBytes = std::size_t{64} * 1024; // at once

bool WouldBlock(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

} // namespace

std::pair<LocalWire, FileDescriptor> LocalWire::Make() {
  std::array<int, 2> ends{-1, -1};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot make a stream");
  }
  return {LocalWire(FileDescriptor(ends[0])), FileDescriptor(ends[1])};
}

bool LocalWire::Receive(std::string& bytes, const Cancellation& cancellation) {
  bytes.resize(MostBytes);
  ssize_t count = -1;
  while (count < 0) {
    if (!Await(POLLIN, cancellation)) return false;
    count = recv(m_end.Get(), bytes.data(), bytes.size(), 0);
    if (count < 0 && !WouldBlock(errno)) return false;
  }
  bytes.resize(static_cast<std::size_t>(count));
  return count > 0;
}

bool LocalWire::Send(std::string_view bytes, const Cancellation& cancellation) {
  while (!bytes.empty()) {
    if (!Await(POLLOUT, cancellation)) return false;
    const ssize_t count = send(m_end.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && !WouldBlock(errno)) return false;
    if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool LocalWire::Await(short events, const Cancellation& cancellation) const {
  int error = ETIMEDOUT;
  while (error == ETIMEDOUT) {
    const auto later = std::chrono::steady_clock::now() + std::chrono::hours(1);
    error = system::WaitFor(m_end.Get(), events, later, &cancellation);
  }
  return error == 0;
}

} // namespace portico::tap
