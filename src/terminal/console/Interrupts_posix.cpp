#include "terminal/console/Interrupts.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <system_error>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace portico::terminal {
namespace {

// What a signal handler can reach. The pipe makes a signal visible to poll, so that none slips in between a test of
// the count and the wait for input.
std::atomic<int> requests = 0;
std::array<int, 2> wakePipe = {-1, -1};
const std::function<void()>* onSecond = nullptr;
constexpr std::array Signals = {SIGINT, SIGTERM};

void Handle(int) {
  const int before = errno;
  if (++requests > 1 && onSecond != nullptr) (*onSecond)();
  const char byte = 0;
  if (write(wakePipe[1], &byte, 1) < 0) {
    // The pipe is full, so it can be read already.
  }
  errno = before;
}

void Install(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  for (const int signal : Signals) sigaction(signal, &action, nullptr);
}

} // namespace

Interrupts::Interrupts(std::function<void()> whenSecond) : m_onSecond(std::move(whenSecond)) {
  if (pipe2(wakePipe.data(), O_NONBLOCK | O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  requests = 0;
  onSecond = &m_onSecond;
  Install(Handle);
}

Interrupts::~Interrupts() {
  Install(SIG_IGN); // the program is ending, and one more of them must not change its exit status
  onSecond = nullptr;
  for (const int end : wakePipe) close(end);
}

bool Interrupts::Requested() const { return requests > 0; }

bool Interrupts::WaitForInput(int descriptor) const {
  while (!Requested()) {
    std::array<pollfd, 2> watched = {{{descriptor, POLLIN, 0}, {wakePipe[0], POLLIN, 0}}};
    if (poll(watched.data(), watched.size(), -1) > 0 && watched[0].revents != 0) return !Requested();
  }
  return false;
}

} // namespace portico::terminal
