#include "system/BackgroundTask.h"

#include <thread>
#include <utility>

namespace portico::system {

BackgroundTask::BackgroundTask(std::function<void(const Cancellation&)> work)
    : m_cancellation(std::make_shared<Cancellation>()) {
  std::thread([work = std::move(work), cancellation = m_cancellation] {
    try {
      work(*cancellation);
    } catch (...) { // nobody is left to hear of it
    }
  }).detach();
}

} // namespace portico::system
