#pragma once

#include "system/Cancellation.h"

#include <functional>
#include <memory>

namespace portico::system {

/// Work on a thread of its own, for calls that can neither be waited for nor broken off. The end of the object gives
/// the order to end, and does not wait: what the work uses must belong to the work, or last as long as the program.
/// What the work throws ends it.
class BackgroundTask {
public:
  /// Fails with `std::system_error`.
  explicit BackgroundTask(std::function<void(const Cancellation&)> work);
  ~BackgroundTask() { m_cancellation->Request(); }
  BackgroundTask(const BackgroundTask&) = delete;
  BackgroundTask& operator=(const BackgroundTask&) = delete;

  /// Whether the work of any task of this program goes on, though the task may be gone.
  static bool AnyGoesOn();

private:
  std::shared_ptr<Cancellation> m_cancellation;
};

} // namespace portico::system
