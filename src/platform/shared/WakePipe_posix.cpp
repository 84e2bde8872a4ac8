#include "platform/shared/WakePipe.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace portico {

WakePipe::WakePipe() {
  if (::pipe2(m_ends.data(), O_NONBLOCK | O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category());
}

WakePipe::~WakePipe() {
  for (const int end : m_ends) ::close(end);
}

void WakePipe::Wake() noexcept {
  const int kept = errno;
  // A pipe that is full is readable already.
  [[maybe_unused]] const auto written = ::write(m_ends[1], "", 1);
  errno = kept;
}

void WakePipe::Drain() noexcept {
  std::array<char, 64> bytes{};
  while (::read(m_ends[0], bytes.data(), bytes.size()) > 0) continue;
}

} // namespace portico
