#include "system/WakePipe.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace portico::system {

WakePipe::WakePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot make a pipe");
  }
  m_reader = FileDescriptor(ends[0]);
  m_writer = FileDescriptor(ends[1]);
}

void WakePipe::Wake() noexcept {
  const int kept = errno;
  // A pipe that is full is readable already.
  [[maybe_unused]] const auto written = ::write(m_writer.Get(), "", 1);
  errno = kept;
}

void WakePipe::Drain() noexcept {
  std::array<char, 64> bytes{};
  while (::read(m_reader.Get(), bytes.data(), bytes.size()) > 0) continue;
}

} // namespace portico::system
