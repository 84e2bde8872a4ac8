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
std::atomic<int> Count = 0;
std::array<int, 2> Pipe = {-1, -1};
const std::function<void()>* OnSecond = nullptr;
constexpr std::array Signals = {SIGINT, SIGTERM};

void Handle(int) {
  const int before = errno;
  if (++Count > 1 && OnSecond != nullptr) (*OnSecond)();
  const char byte = 0;
  if (write(Pipe[1], &byte, 1) < 0) {
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

Interrupts::Interrupts(std::function<void()> onSecond) : m_onSecond(std::move(onSecond)) {
  if (pipe2(Pipe.data(), O_NONBLOCK | O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe");
  }
  Count = 0;
  OnSecond = &m_onSecond;
  Install(Handle);
}

Interrupts::~Interrupts() {
  Install(SIG_IGN); // the program is ending, and one more of them must not change its exit status
  OnSecond = nullptr;
  for (const int end : Pipe) close(end);
}

bool Interrupts::Requested() const { return Count > 0; }

bool Interrupts::WaitForInput(int descriptor) const {
  while (!Requested()) {
    std::array<pollfd, 2> watched = {{{descriptor, POLLIN, 0}, {Pipe[0], POLLIN, 0}}};
    if (poll(watched.data(), watched.size(), -1) > 0 && watched[0].revents != 0) return !Requested();
  }
  return false;
}

} // namespace portico::terminal
