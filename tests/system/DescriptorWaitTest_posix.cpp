#include "system/DescriptorWait.h"

#include <array>
#include <cerrno>
#include <gtest/gtest.h>
#include <poll.h>

namespace portico::system {
namespace {

using Clock = std::chrono::steady_clock;

class DescriptorWaitTest : public testing::Test {
protected:
  static Clock::time_point InAnHour() { return Clock::now() + std::chrono::hours(1); }
  static Clock::time_point AtOnce() { return Clock::now() + std::chrono::milliseconds(1); }

  WakePipe first;
  WakePipe second;
  Cancellation cancellation;
};

TEST_F(DescriptorWaitTest, OneThatIsReadyEndsTheWaitAndIsTold) {
  second.Wake();
  std::array both = {Awaited{first.Descriptor(), POLLIN}, Awaited{second.Descriptor(), POLLIN}};
  EXPECT_EQ(WaitForAny(both, InAnHour(), &cancellation), 0);
  EXPECT_EQ(both[0].Ready, 0);
  EXPECT_EQ(both[1].Ready, POLLIN);
}

TEST_F(DescriptorWaitTest, ItEndsAtTheDeadline) {
  const Clock::time_point deadline = AtOnce();
  EXPECT_EQ(WaitFor(first.Descriptor(), POLLIN, deadline, nullptr), ETIMEDOUT);
  EXPECT_GE(Clock::now(), deadline);
  EXPECT_EQ(WaitForAny({}, AtOnce(), &cancellation), ETIMEDOUT);
}

TEST_F(DescriptorWaitTest, PastTheDeadlineNobodyLooksWhatIsReady) {
  first.Wake();
  EXPECT_EQ(WaitFor(first.Descriptor(), POLLIN, Clock::now(), nullptr), ETIMEDOUT);
}

TEST_F(DescriptorWaitTest, TheOrderToGiveUpOutranksWhatIsReadyAndStays) {
  first.Wake();
  cancellation.Request();
  EXPECT_EQ(WaitFor(first.Descriptor(), POLLIN, InAnHour(), &cancellation), ECANCELED);
  EXPECT_EQ(WaitFor(second.Descriptor(), POLLIN, InAnHour(), &cancellation), ECANCELED);
  EXPECT_EQ(WaitFor(first.Descriptor(), POLLIN, InAnHour(), nullptr), 0);
}

TEST_F(DescriptorWaitTest, ADescriptorThatHasFailedEndsTheWait) {
  const int closed = [] { return WakePipe().Descriptor(); }();
  EXPECT_EQ(WaitFor(closed, POLLIN, InAnHour(), &cancellation), 0);
}

TEST_F(DescriptorWaitTest, MoreThanTwoAreRefused) {
  const Awaited one{first.Descriptor(), POLLIN};
  std::array three = {one, one, one};
  EXPECT_EQ(WaitForAny(three, InAnHour(), nullptr), EINVAL);
}

TEST(Cancellation, WithoutOneNothingWasRequested) {
  EXPECT_FALSE(Requested(nullptr));
  Cancellation cancellation;
  EXPECT_FALSE(Requested(&cancellation));
  cancellation.Request();
  EXPECT_TRUE(Requested(&cancellation));
}

} // namespace
} // namespace portico::system
