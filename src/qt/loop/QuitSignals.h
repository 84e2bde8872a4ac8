#pragma once

#include <memory>

namespace portico {
class IEventLoop;
}

namespace portico::qt {

/// For as long as it lives, the signals that end a program (a terminal's interrupt, its hang-up, and the order to
/// terminate) ask the loop to quit instead. One at a time; the loop outlives it.
class QuitSignals {
public:
  explicit QuitSignals(IEventLoop& loop);
  QuitSignals(const QuitSignals&) = delete;
  QuitSignals& operator=(const QuitSignals&) = delete;
  ~QuitSignals();

private:
  struct Former;
  std::unique_ptr<Former> m_former;
};

} // namespace portico::qt
