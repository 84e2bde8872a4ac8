#pragma once

#include <memory>

namespace portico {
class IEventLoop;
}
namespace portico::system {
class Cancellation;
}

namespace portico::qt {

/// For as long as it lives, the signals that end a program (a terminal's interrupt, its hang-up, and the order to
/// terminate) ask the loop to quit instead, and give the order to end all waits for instruments. One at a time; loop
/// and order outlive it.
class QuitSignals {
public:
  QuitSignals(IEventLoop& loop, system::Cancellation& cancellation);
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;
  ~QuitSignals();

private:
  struct Former;
  std::unique_ptr<Former> m_former;
};

} // namespace portico::qt
