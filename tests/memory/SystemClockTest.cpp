#include "memory/SystemClock.h"

#include "framework/errors/Quit.h"
#include "memory/EventLoop.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <thread>

namespace portico::memory {
namespace {

using namespace std::chrono_literals;

TEST(SystemClockTest, TimeDoesNotRunBackwards) {
  const SystemClock clock;
  const auto before = clock.Now();
  EXPECT_LE(before, clock.Now());
}

TEST(SystemClockTest, WaitReachesItsDeadline) {
  SystemClock clock;
  const auto deadline = clock.Now() + 5ms;
  clock.WaitUntil(deadline);
  EXPECT_GE(clock.Now(), deadline);
}

TEST(SystemClockTest, DeadlineInThePastReturns) {
  SystemClock clock;
  clock.WaitUntil(clock.Now() - 1h);
  clock.WaitUntil(Clock::TimePoint{});
}

TEST(SystemClockTest, WakeEndsTheNextWait) {
  SystemClock clock;
  clock.Wake();
  clock.WaitUntil(std::nullopt); // would never return
}

TEST(SystemClockTest, WakeFromAnotherThreadEndsAWait) {
  SystemClock clock;
  std::thread waker([&] { clock.Wake(); });
  clock.WaitUntil(std::nullopt);
  waker.join();
}

TEST(SystemClockTest, ManyWakesEndOneWaitOnly) {
  SystemClock clock;
  for (int i = 0; i < 1000; ++i) clock.Wake();
  clock.WaitUntil(std::nullopt);
  const auto deadline = clock.Now() + 5ms;
  clock.WaitUntil(deadline);
  EXPECT_GE(clock.Now(), deadline);
}

TEST(SystemClockTest, WakesThatNobodyTakesDoNotBlock) {
  SystemClock clock;
  for (int i = 0; i < 200000; ++i) clock.Wake(); // more than a pipe holds
  clock.WaitUntil(std::nullopt);
}

TEST(SystemClockTest, WakeLeavesTheErrorOfTheSystemAlone) {
  SystemClock clock;
  errno = 42;
  for (int i = 0; i < 200000; ++i) clock.Wake();
  EXPECT_EQ(errno, 42);
}

EventLoop* loopOfTheSignal = nullptr;

TEST(SystemClockTest, QuitFromASignalHandlerEndsAWait) {
  SystemClock clock;
  EventLoop loop(clock);
  loopOfTheSignal = &loop;
  const auto before = std::signal(SIGINT, [](int) { loopOfTheSignal->RequestQuit(); });
  const auto timer = loop.MakeTimer();
  timer->Timer().Connect([] { std::raise(SIGINT); });
  timer->Interval(1);
  timer->Enabled(true);
  EXPECT_THROW(
      {
        for (;;) loop.WaitForEvent();
      },
      Quit);
  std::signal(SIGINT, before);
}

TEST(SystemClockTest, LoopFiresATimerNoSoonerThanItsInterval) {
  SystemClock clock;
  const auto start = clock.Now();
  EventLoop loop(clock);
  int fired = 0;
  const auto timer = loop.MakeTimer();
  timer->Timer().Connect([&] { ++fired; });
  timer->Interval(1);
  timer->Enabled(true);
  while (fired < 3) loop.WaitForEvent();
  EXPECT_GE(clock.Now(), start + 3ms);
}

} // namespace
} // namespace portico::memory
