#pragma once

#include "platform/IProgress.h"

#include <chrono>

namespace portico::qt {

class EventLoop;

/// Shows long work in a dialog with a bar and a button that cancels.
class ProgressDisplay final : public IProgressDisplay {
public:
  /// The loop must outlive it. Work that is done within `patience` is not shown.
  explicit ProgressDisplay(EventLoop& loop, std::chrono::milliseconds patience = std::chrono::milliseconds(500))
      : m_loop(loop), m_patience(patience) {}

  std::unique_ptr<IProgress> Begin(const String& text) override;

private:
  EventLoop& m_loop;
  std::chrono::milliseconds m_patience;
};

} // namespace portico::qt
