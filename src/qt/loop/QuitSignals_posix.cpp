#include "qt/loop/QuitSignals.h"

#include "platform/IEventLoop.h"
#include "system/Cancellation.h"

#include <array>
#include <atomic>
#include <csignal>
#include <memory>

namespace portico::qt {
namespace {

constexpr std::array Signals{SIGINT, SIGHUP, SIGTERM};
std::atomic<IEventLoop*> told = nullptr;
std::atomic<system::Cancellation*> ordered = nullptr;

void Tell(int /*signal*/) {
  // In this order: who was waiting for an instrument finds that the program is to end.
  if (IEventLoop* loop = told) loop->RequestQuit();
  if (system::Cancellation* cancellation = ordered) cancellation->Request();
}

} // namespace

struct QuitSignals::Former {
  std::array<struct sigaction, Signals.size()> Actions{};
};

QuitSignals::QuitSignals(IEventLoop& loop, system::Cancellation& cancellation) : m_former(std::make_unique<Former>()) {
  told = &loop;
  ordered = &cancellation;
  struct sigaction action {};
  action.sa_handler = Tell;
  action.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < Signals.size(); ++i) ::sigaction(Signals[i], &action, &m_former->Actions[i]);
}

QuitSignals::~QuitSignals() {
  for (std::size_t i = 0; i < Signals.size(); ++i) ::sigaction(Signals[i], &m_former->Actions[i], nullptr);
  told = nullptr;
  ordered = nullptr;
}

} // namespace portico::qt
