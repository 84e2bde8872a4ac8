#include "views/repeat/TurnSchedule.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

using namespace std::chrono_literals;
using TimePoint = TurnSchedule::TimePoint;

constexpr TimePoint Start{100s};

class TurnScheduleTest : public testing::Test {
protected:
  /// Milliseconds behind the start; -1 for none. The turn begins.
  static long long NextOf(TurnSchedule& schedule, std::chrono::microseconds over) {
    const auto next = schedule.Next(Start + over);
    if (!next) return -1;
    schedule.Begin();
    return std::chrono::duration_cast<std::chrono::milliseconds>(*next - Start).count();
  }
};

TEST_F(TurnScheduleTest, TurnsComeStartToStart) {
  TurnSchedule schedule({}, 1s, Start);
  EXPECT_EQ(schedule.Turn(), 1U);
  EXPECT_EQ(NextOf(schedule, 300ms), 1000);
  EXPECT_EQ(schedule.Turn(), 2U);
  EXPECT_EQ(NextOf(schedule, 1999ms), 2000);
  EXPECT_EQ(NextOf(schedule, 2000ms), 3000) << "it took no time";
  EXPECT_EQ(schedule.Turn(), 4U);
  EXPECT_EQ(schedule.Skipped(), 0U);
}

TEST_F(TurnScheduleTest, WhatIsTooLateIsSkippedAndCountedAndTheGridStays) {
  TurnSchedule schedule({}, 1s, Start);
  EXPECT_EQ(NextOf(schedule, 1s), 1000) << "just in time";
  EXPECT_EQ(schedule.Skipped(), 0U);
  EXPECT_EQ(NextOf(schedule, 2'000'001us), 3000);
  EXPECT_EQ(schedule.Skipped(), 1U);
  EXPECT_EQ(NextOf(schedule, 7500ms), 8000);
  EXPECT_EQ(schedule.Skipped(), 5U);
  EXPECT_EQ(NextOf(schedule, 10s), 10000) << "9 is too late, 10 is not";
  EXPECT_EQ(schedule.Skipped(), 6U);
  EXPECT_EQ(schedule.Turn(), 5U);
}

TEST_F(TurnScheduleTest, SoManyTurnsAreRunAndTheSkippedAreNoneOfThem) {
  TurnSchedule schedule(3, 1s, Start);
  EXPECT_EQ(NextOf(schedule, 2500ms), 3000);
  EXPECT_EQ(NextOf(schedule, 3100ms), 4000);
  EXPECT_EQ(NextOf(schedule, 4100ms), -1);
  EXPECT_EQ(schedule.Turn(), 3U);
  EXPECT_EQ(schedule.Skipped(), 2U);
}

TEST_F(TurnScheduleTest, BehindTheLastTurnNoneIsSkipped) {
  TurnSchedule schedule(1, 1s, Start);
  EXPECT_EQ(NextOf(schedule, 60s), -1);
  EXPECT_EQ(schedule.Skipped(), 0U);
}

TEST_F(TurnScheduleTest, WithoutAnIntervalEachBeginsAtOnceAndNoneIsSkipped) {
  TurnSchedule schedule(3, 0ms, Start);
  EXPECT_EQ(NextOf(schedule, 5s), 5000);
  EXPECT_EQ(NextOf(schedule, 5s), 5000);
  EXPECT_EQ(NextOf(schedule, 6s), -1);
  EXPECT_EQ(schedule.Skipped(), 0U);
}

} // namespace
} // namespace portico
