#include "system/BackgroundTask.h"

#include <atomic>
#include <thread>
#include <utility>

namespace portico::system {
namespace {

std::atomic<int> going = 0;

struct Going {
  Going() { ++going; }
  Going(const Going&) = delete;
  Going& operator=(const Going&) = delete;
  ~Going() { --going; }
};

} // namespace

BackgroundTask::BackgroundTask(std::function<void(const Cancellation&)> work)
    : m_cancellation(std::make_shared<Cancellation>()) {
  std::thread([work = std::move(work), cancellation = m_cancellation, goingOn = std::make_shared<Going>()] {
    try {
      work(*cancellation);
    } catch (...) { // nobody is left to hear of it
    }
  }).detach();
}

bool BackgroundTask::AnyGoesOn() { return going > 0; }

} // namespace portico::system
