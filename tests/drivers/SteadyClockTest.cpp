#include "drivers/SteadyClock.h"

#include <gtest/gtest.h>

namespace portico::drivers {
namespace {

TEST(SteadyClock, SleepsUntilTheMoment) {
  SteadyClock clock;
  const TimePoint moment = clock.Now() + std::chrono::microseconds(2500);
  clock.SleepUntil(moment);
  EXPECT_GE(clock.Now(), moment);
}

TEST(SteadyClock, TheOrderToGiveUpEndsASleep) {
  system::Cancellation cancellation;
  cancellation.Request();
  SteadyClock clock(&cancellation);
  const TimePoint moment = clock.Now() + std::chrono::hours(1);
  clock.SleepUntil(moment);
  EXPECT_LT(clock.Now(), moment);
}

} // namespace
} // namespace portico::drivers
