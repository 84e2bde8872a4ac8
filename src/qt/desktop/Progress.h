#pragma once

#include "platform/IProgress.h"

#include <QElapsedTimer>
#include <QProgressDialog>

#include <chrono>
#include <memory>

namespace portico::qt {

class EventLoop;

/// Shows long work in a dialog with a bar and a button that gives it up.
class Progress final : public IProgress {
public:
  /// The loop must outlive it. Work that is done within `patience` is not shown.
  explicit Progress(EventLoop& loop, std::chrono::milliseconds patience = std::chrono::milliseconds(500))
      : m_loop(loop), m_patience(patience) {}

  void Begin(const String& Prompt) override;
  bool Step(double Done, double Total) override;
  void End() noexcept override;

private:
  void Show();

  EventLoop& m_loop;
  std::chrono::milliseconds m_patience;
  int m_depth = 0; ///< of work within work
  QString m_prompt;
  QElapsedTimer m_begun;
  QElapsedTimer m_turned;
  std::unique_ptr<QProgressDialog> m_dialog;
  bool m_isGivenUp = false;
};

} // namespace portico::qt
