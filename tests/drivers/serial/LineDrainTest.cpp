#include "drivers/serial/LineDrain.h"

#include "support/doubles/ManualClock.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace portico::test {
namespace {

using drivers::DrainLine;
using std::chrono::milliseconds;

/// A line that sends so many bytes each millisecond.
class LineDrainTest : public testing::Test {
protected:
  std::function<int()> Sending(int bytes, int perMillisecond) {
    return [this, bytes, perMillisecond, start = clock.Now()] {
      return std::max(0, bytes - perMillisecond * static_cast<int>((clock.Now() - start) / milliseconds(1)));
    };
  }

  ManualClock clock;
  const ManualClock::TimePoint begin = clock.Now();
};

TEST_F(LineDrainTest, AnEmptyQueueTakesNoTime) {
  EXPECT_EQ(DrainLine([] { return 0; }, {}, clock, nullptr), 0);
  EXPECT_EQ(clock.Now(), begin);
}

TEST_F(LineDrainTest, WaitsJustUntilAllIsOut) {
  EXPECT_EQ(DrainLine(Sending(600, 1), {.Speed = 9600}, clock, nullptr), 0);
  EXPECT_EQ(clock.Now() - begin, milliseconds(600));
}

TEST_F(LineDrainTest, ALineThatIsHeldUpGetsTheTimeThatItNeeds) {
  // 1000 bytes of 12 bits at 1200 bits per second, and a tenth of a second.
  EXPECT_EQ(DrainLine([] { return 1000; }, {.Speed = 1200}, clock, nullptr), 1000);
  EXPECT_EQ(clock.Now() - begin, milliseconds(10100));
}

TEST_F(LineDrainTest, WhatIsLeftIsTold) {
  EXPECT_EQ(DrainLine(Sending(1000, 1), {.Speed = 115200}, clock, nullptr), 1000 - 204);
}

TEST_F(LineDrainTest, TheOrderToGiveUpEndsTheWait) {
  system::Cancellation cancellation;
  int looks = 0;
  const auto queued = [&] {
    if (++looks == 3) cancellation.Request();
    return 1000;
  };
  EXPECT_EQ(DrainLine(queued, {}, clock, &cancellation), 1000);
  EXPECT_EQ(clock.Now() - begin, milliseconds(2));
}

} // namespace
} // namespace portico::test
