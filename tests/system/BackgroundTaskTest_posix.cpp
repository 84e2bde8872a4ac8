#include "system/BackgroundTask.h"

#include "system/DescriptorWait.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <future>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <thread>

namespace portico::system {
namespace {

std::chrono::steady_clock::time_point InAMinute() { return std::chrono::steady_clock::now() + std::chrono::minutes(1); }

TEST(BackgroundTaskTest, EndOfTheObjectIsTheOrderToEnd) {
  std::promise<int> ended;
  auto result = ended.get_future();
  {
    const BackgroundTask task([&ended](const Cancellation& cancellation) {
      ended.set_value(WaitFor(-1, POLLIN, InAMinute(), &cancellation));
    });
  }
  EXPECT_EQ(result.get(), ECANCELED);
}

TEST(BackgroundTaskTest, EndOfTheObjectDoesNotWaitForWorkThatIsStuck) {
  const auto release = std::make_shared<std::promise<void>>();
  std::promise<bool> ended;
  auto result = ended.get_future();
  std::optional<BackgroundTask> task(std::in_place, [&ended, release](const Cancellation& cancellation) {
    release->get_future().wait();
    ended.set_value(cancellation.Requested());
  });
  task.reset();
  release->set_value(); // a destructor that waited would never have come here
  EXPECT_TRUE(result.get());
}

TEST(BackgroundTaskTest, ProgramKnowsOfWorkThatGoesOnThoughTheObjectIsGone) {
  const auto release = std::make_shared<std::promise<void>>();
  std::optional<BackgroundTask> task(std::in_place, [release](const Cancellation&) { release->get_future().wait(); });
  task.reset();
  EXPECT_TRUE(BackgroundTask::AnyGoesOn());
  release->set_value();
  while (BackgroundTask::AnyGoesOn()) std::this_thread::yield(); // in which a thread that has come to its end is gone
}

TEST(BackgroundTaskTest, WhatTheWorkThrowsEndsIt) {
  std::promise<void> gone;
  auto result = gone.get_future();
  struct AtEnd {
    std::promise<void>* Gone;
    ~AtEnd() { Gone->set_value(); }
  };
  const BackgroundTask task([&gone](const Cancellation&) {
    const AtEnd atEnd{&gone};
    throw std::runtime_error("no bus");
  });
  result.get();
}

} // namespace
} // namespace portico::system
