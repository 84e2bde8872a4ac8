#include "terminal/console/Interrupts.h"

#include <array>
#include <atomic>
#include <cerrno>

#include <csignal>
#include <poll.h>

namespace portico::terminal {
namespace {

// What a signal handler can reach.
std::atomic<int> requests = 0;
system::WakePipe* wakeUp = nullptr;
const std::function<void()>* onSecond = nullptr;
const std::function<void()>* onAny = nullptr;
constexpr std::array Signals = {SIGINT, SIGTERM};

void Handle(int) {
  const int before = errno;
  if (++requests > 1 && onSecond != nullptr) (*onSecond)();
  if (wakeUp != nullptr) wakeUp->Wake();
  if (onAny != nullptr) (*onAny)();
  errno = before;
}

void Install(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  sigemptyset(&action.sa_mask);
  for (const int signal : Signals) sigaction(signal, &action, nullptr);
}

} // namespace

Interrupts::Interrupts(std::function<void()> whenSecond, std::function<void()> whenAny)
    : m_onSecond(std::move(whenSecond)), m_onAny(std::move(whenAny)) {
  requests = 0;
  wakeUp = &m_wakeUp;
  onSecond = &m_onSecond;
  onAny = m_onAny ? &m_onAny : nullptr;
  Install(Handle);
}

Interrupts::~Interrupts() {
  Install(SIG_IGN); // the program is ending, and one more of them must not change its exit status
  onAny = nullptr;
  onSecond = nullptr;
  wakeUp = nullptr;
}

bool Interrupts::Requested() const { return requests > 0; }
bool Interrupts::RequestedAgain() const { return requests > 1; }

bool Interrupts::WaitForInput(int descriptor) const {
  while (!Requested()) {
    std::array<pollfd, 2> watched = {{{descriptor, POLLIN, 0}, {m_wakeUp.Descriptor(), POLLIN, 0}}};
    if (poll(watched.data(), watched.size(), -1) > 0 && watched[0].revents != 0) return !Requested();
  }
  return false;
}

} // namespace portico::terminal
