#include "timing/DurationHistogram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace portico::timing {
namespace {

using namespace std::chrono_literals;
using Duration = DurationHistogram::Duration;

TEST(DurationHistogram, OfNoneAllIsZero) {
  const DurationHistogram none;
  EXPECT_EQ(none.Count(), 0U);
  EXPECT_EQ(none.Maximum(), 0ns);
  EXPECT_EQ(none.Percentile(50), 0ns);
}

TEST(DurationHistogram, OneIsExact) {
  DurationHistogram one;
  one.Add(1'234'567ns);
  EXPECT_EQ(one.Count(), 1U);
  for (const unsigned percent : {1U, 50U, 99U, 100U}) EXPECT_EQ(one.Percentile(percent), 1'234'567ns);
  EXPECT_EQ(one.Maximum(), 1'234'567ns);
}

TEST(DurationHistogram, ShortOnesAreExact) {
  DurationHistogram times;
  for (int i = 127; i >= 1; --i) times.Add(std::chrono::nanoseconds(i));
  EXPECT_EQ(times.Percentile(1), 2ns);
  EXPECT_EQ(times.Percentile(50), 64ns);
  EXPECT_EQ(times.Percentile(99), 126ns);
  EXPECT_EQ(times.Percentile(100), 127ns);
}

// A class of four nanoseconds from 256 on is told as its middle, 258.
TEST(DurationHistogram, NoPercentileIsBeyondTheSmallestOrTheLargest) {
  DurationHistogram late;
  late.Add(259ns);
  late.Add(5000ns);
  EXPECT_EQ(late.Percentile(50), 259ns);
  DurationHistogram early;
  early.Add(256ns);
  early.Add(256ns);
  EXPECT_EQ(early.Percentile(50), 256ns);
}

TEST(DurationHistogram, MaximumIsExactAmongMany) {
  DurationHistogram times;
  times.Add(2s);
  times.Add(5'000'000'001ns);
  times.Add(1us);
  EXPECT_EQ(times.Maximum(), 5'000'000'001ns);
  EXPECT_EQ(times.Percentile(100), 5'000'000'001ns);
}

TEST(DurationHistogram, WhatWasRunBackwardsIsZero) {
  DurationHistogram times;
  times.Add(-5ns);
  EXPECT_EQ(times.Percentile(100), 0ns);
  times.Add(3ns);
  EXPECT_EQ(times.Percentile(50), 0ns);
  EXPECT_EQ(times.Maximum(), 3ns);
}

TEST(DurationHistogram, TheLongestThatThereIsIsTaken) {
  DurationHistogram times;
  times.Add(Duration::max());
  times.Add(1ns);
  EXPECT_EQ(times.Percentile(50), 1ns);
  EXPECT_EQ(times.Percentile(99), Duration::max());
}

/// Against the sorted numbers themselves, over twelve powers of ten.
TEST(DurationHistogram, PercentilesAreAtMostOnePercentOff) {
  std::mt19937_64 random(4711);
  std::uniform_real_distribution<double> exponent(0, 12);
  for (int round = 0; round < 200; ++round) {
    DurationHistogram times;
    std::vector<double> exact;
    const std::size_t count = 1 + random() % 300;
    for (std::size_t i = 0; i < count; ++i) {
      const auto number = static_cast<Duration::rep>(std::pow(10, exponent(random)));
      times.Add(Duration(number));
      exact.push_back(static_cast<double>(number));
    }
    std::sort(exact.begin(), exact.end());
    for (const unsigned percent : {1U, 10U, 50U, 90U, 99U, 100U}) {
      const double wanted = exact[(count * percent + 99) / 100 - 1];
      EXPECT_NEAR(static_cast<double>(times.Percentile(percent).count()), wanted, wanted / 100)
          << percent << " percent of " << count;
    }
  }
}

} // namespace
} // namespace portico::timing
