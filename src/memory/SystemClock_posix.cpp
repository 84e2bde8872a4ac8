#include "memory/Clock.h"

#include <array>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace portico::memory {

// A pipe to oneself: a byte written to it ends a poll, from a signal handler too.

SystemClock::SystemClock() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
  m_wakeRead = ends[0];
  m_wakeWrite = ends[1];
}

SystemClock::~SystemClock() {
  close(m_wakeRead);
  close(m_wakeWrite);
}

void SystemClock::WaitUntil(std::optional<TimePoint> deadline) {
  pollfd wake{m_wakeRead, POLLIN, 0};
  timespec rest{};
  if (deadline) {
    const auto left = std::max(*deadline - Now(), TimePoint::duration::zero());
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    rest.tv_sec = seconds.count();
    rest.tv_nsec = static_cast<long>(std::chrono::nanoseconds(left - seconds).count());
  }
  if (ppoll(&wake, 1, deadline ? &rest : nullptr, nullptr) <= 0) return;
  std::array<char, 64> bytes{};
  while (read(m_wakeRead, bytes.data(), bytes.size()) > 0) {
  }
}

void SystemClock::Wake() noexcept {
  const int before = errno; // a signal handler must leave it alone
  const char byte = 0;
  if (write(m_wakeWrite, &byte, 1) < 0) {
    // The pipe is full, so the wait ends anyway.
  }
  errno = before;
}

} // namespace portico::memory
