#include "terminal/console/Progress.h"

#include <gtest/gtest.h>

#include <sstream>

namespace portico::terminal {
namespace {

using namespace std::chrono_literals;

class ProgressTest : public ::testing::Test {
protected:
  Progress Of(std::optional<std::size_t> total) {
    return {Out, [this] { return Now; }, total};
  }
  std::string Written() {
    std::string text = Out.str();
    Out.str({});
    return text;
  }

  std::ostringstream Out;
  Progress::TimePoint Now{};
};

TEST_F(ProgressTest, TellsLinesRateAndTimeLeft) {
  Progress progress = Of(100);
  Now += 500ms;
  progress.Show(1);
  EXPECT_EQ(Written(), "\r1 of 100 lines, 2.0/s, 0:50 left\x1B[K");
}

TEST_F(ProgressTest, WithoutATotalNoTimeIsLeft) {
  Progress progress = Of({});
  Now += 500ms;
  progress.Show(1);
  EXPECT_EQ(Written(), "\r1 line, 2.0/s\x1B[K");
  Now += 500ms;
  progress.Show(2);
  EXPECT_EQ(Written(), "\r2 lines, 2.0/s\x1B[K");
}

TEST_F(ProgressTest, StandsStillBetweenTwoTenthsOfASecond) {
  Progress progress = Of({});
  Now += 1s;
  progress.Show(1);
  Written();
  for (std::size_t line = 2; line <= 100; ++line) {
    Now += 1ms;
    progress.Show(line);
  }
  EXPECT_EQ(Written(), "");
  Now += 1ms;
  progress.Show(101);
  EXPECT_EQ(Written(), "\r101 lines, 92/s\x1B[K");
}

TEST_F(ProgressTest, WithoutTimeThereIsNoRate) {
  Progress progress = Of(7);
  progress.Show(1);
  EXPECT_EQ(Written(), "\r1 of 7 lines\x1B[K");
}

TEST_F(ProgressTest, LongTimesAreToldInHours) {
  Progress progress = Of(5001);
  Now += 2s;
  progress.Show(1);
  EXPECT_EQ(Written(), "\r1 of 5001 lines, 0.5/s, 2:46:40 left\x1B[K");
}

TEST_F(ProgressTest, ErasedLineComesBackWithTheNext) {
  Progress progress = Of({});
  Now += 1s;
  progress.Show(1);
  Written();
  progress.Erase();
  EXPECT_EQ(Written(), "\r\x1B[K");
  progress.Show(2);
  EXPECT_EQ(Written(), "\r2 lines, 2.0/s\x1B[K");
}

TEST_F(ProgressTest, BehindAHeadingCountsAndRateBeginAnew) {
  Progress progress = Of(4);
  Now += 1s;
  progress.Show(4);
  Written();
  Now += 50ms;
  progress.Begin("turn 2 of 3: ");
  progress.Show(1);
  EXPECT_EQ(Written(), "") << "not more often than ten times a second";
  Now += 500ms;
  progress.Show(1);
  EXPECT_EQ(Written(), "\rturn 2 of 3: 1 of 4 lines, 2.0/s, 0:02 left\x1B[K");
}

TEST_F(ProgressTest, AWaitIsToldIfItIsWorthIt) {
  Progress progress = Of(4);
  progress.Begin("turn 1 of 3: ");
  progress.Show(4);
  Written();
  progress.ShowWait("turn 2 of 3: ", Now + 99ms);
  EXPECT_EQ(Written(), "");
  progress.ShowWait("turn 2 of 3: ", Now + 100ms);
  EXPECT_EQ(Written(), "\rturn 2 of 3: waiting\x1B[K");
  progress.Erase();
  EXPECT_EQ(Written(), "\r\x1B[K");
}

TEST_F(ProgressTest, WhatDoesNotStandIsNotErased) {
  Progress progress = Of({});
  progress.Erase();
  EXPECT_EQ(Written(), "");
}

} // namespace
} // namespace portico::terminal
