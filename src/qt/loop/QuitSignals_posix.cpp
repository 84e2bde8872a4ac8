#include "qt/loop/QuitSignals.h"

#include "platform/IEventLoop.h"

#include <array>
#include <atomic>
#include <csignal>
#include <memory>

namespace portico::qt {
namespace {

constexpr std::array Signals{SIGINT, SIGHUP, SIGTERM};
std::atomic<IEventLoop*> told = nullptr;

void Tell(int /*signal*/) {
  if (IEventLoop* loop = told) loop->RequestQuit();
}

} // namespace

struct QuitSignals::Former {
  std::array<struct sigaction, Signals.size()> Actions{};
};

QuitSignals::QuitSignals(IEventLoop& loop) : m_former(std::make_unique<Former>()) {
  told = &loop;
  struct sigaction action {};
  action.sa_handler = Tell;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < Signals.size(); ++i) ::sigaction(Signals[i], &action, &m_former->Actions[i]);
}

QuitSignals::~QuitSignals() {
  for (std::size_t i = 0; i < Signals.size(); ++i) ::sigaction(Signals[i], &m_former->Actions[i], nullptr);
  told = nullptr;
}

} // namespace portico::qt
