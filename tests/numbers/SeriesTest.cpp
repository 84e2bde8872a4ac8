#include "numbers/Series.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace portico::numbers {
namespace {

using testing::Pair;

Extremes Between(double minimum, double maximum) { return {.Minimum = minimum, .Maximum = maximum}; }

Series Squares(int count) {
  Series series;
  for (int i = 0; i < count; ++i) series.Append(i, i * i);
  return series;
}

TEST(Series, ValuesStandAtTheirPlaces) {
  const Series series = Squares(4);
  EXPECT_EQ(series.Size(), 4U);
  EXPECT_EQ(series.Place(3), 3);
  EXPECT_EQ(series.Value(3), 9);
  EXPECT_EQ(series.Whole(), (Range{0, 3}));
}

TEST(Series, EmptySeriesHasNoExtremesAndEmptyColumns) {
  const Series series;
  EXPECT_TRUE(series.Empty());
  EXPECT_EQ(series.Whole(), (Range{0, 0}));
  EXPECT_FALSE(series.Over({0, 1}).HasValues());
  const auto columns = series.Reduce({0, 1}, 3);
  ASSERT_EQ(columns.size(), 3U);
  for (const auto& column : columns) EXPECT_EQ(column.First, column.Last);
}

TEST(Series, PlaceThatGoesBackIsThatOfTheValueBefore) {
  Series series;
  for (const double place : {1.0, 5.0, 3.0, Gap, 6.0}) series.Append(place, 0);
  EXPECT_EQ(series.Place(2), 5);
  EXPECT_EQ(series.Place(3), 5);
  EXPECT_EQ(series.Place(4), 6);
}

TEST(Series, BothEndsOfARangeAreWithinIt) {
  const Series series = Squares(10);
  EXPECT_THAT(series.Within({2, 5}), Pair(2, 6));
  EXPECT_THAT(series.Within({2.5, 4.5}), Pair(3, 5));
  EXPECT_THAT(series.Within({-3, 100}), Pair(0, 10));
  EXPECT_THAT(series.Within({11, 12}), Pair(10, 10));
  EXPECT_EQ(series.Over({2, 5}), Between(4, 25));
}

TEST(Series, ColumnsTellTheirValuesAndTheirExtremes) {
  const auto columns = Squares(10).Reduce({0, 8}, 4);
  ASSERT_EQ(columns.size(), 4U);
  EXPECT_EQ(columns[0].First, 0U);
  EXPECT_EQ(columns[0].Last, 2U);
  EXPECT_EQ(columns[0].Values, Between(0, 1));
  EXPECT_EQ(columns[1].Values, Between(4, 9)) << "a value on the border belongs to the right column";
  EXPECT_EQ(columns[3].First, 6U);
  EXPECT_EQ(columns[3].Last, 9U) << "a value at the end belongs to the last column";
  EXPECT_EQ(columns[3].Values, Between(36, 64));
}

TEST(Series, ColumnsBetweenValuesAreEmpty) {
  const auto columns = Squares(3).Reduce({0, 2}, 9);
  EXPECT_TRUE(columns[0].Values.HasValues());
  EXPECT_FALSE(columns[1].Values.HasValues());
  EXPECT_EQ(columns[1].First, columns[1].Last);
  EXPECT_TRUE(columns[4].Values.HasValues());
  EXPECT_TRUE(columns[8].Values.HasValues());
}

TEST(Series, RangeWithNothingBetweenItsEndsHasEmptyColumns) {
  const Series series = Squares(10);
  for (const Range& range : {Range{3, 3}, Range{5, 2}, Range{Gap, 5}, Range{0, Gap}, Range{-Overload, 5},
                             Range{0, Overload}, Range{-1E308, 1E308}}) {
    const auto columns = series.Reduce(range, 5);
    ASSERT_EQ(columns.size(), 5U);
    for (const auto& column : columns) {
      EXPECT_EQ(column.First, column.Last) << range.From << ' ' << range.To;
      EXPECT_FALSE(column.Values.HasValues()) << range.From << ' ' << range.To;
    }
  }
}

TEST(Series, OneGapAndOneOverloadAmongManyValuesSurvive) {
  Series series;
  for (int i = 0; i < 5000; ++i) series.Append(i, i == 1234 ? Gap : i == 3456 ? Overload : i == 4567 ? -Overload : 1);
  const auto columns = series.Reduce({0, 5000}, 5);
  EXPECT_EQ(columns[0].Values, Between(1, 1));
  EXPECT_EQ(columns[1].Values, (Extremes{.Minimum = 1, .Maximum = 1, .Gaps = true}));
  EXPECT_EQ(columns[3].Values, (Extremes{.Minimum = 1, .Maximum = 1, .High = true}));
  EXPECT_EQ(columns[4].Values, (Extremes{.Minimum = 1, .Maximum = 1, .Low = true}));
}

TEST(Series, NothingButMarksIsNoValue) {
  Series series;
  for (int i = 0; i < 100; ++i) series.Append(i, Gap);
  EXPECT_FALSE(series.Over({0, 99}).HasValues());
  EXPECT_TRUE(series.Over({0, 99}).Gaps);
  EXPECT_FALSE(series.Over({0, 99}).High);
}

TEST(Series, MemoryIsBoundedForEachValue) {
  for (const std::size_t count : {std::size_t{1000}, std::size_t{65'537}, std::size_t{100'000}}) {
    Series series;
    for (std::size_t i = 0; i < count; ++i) series.Append(static_cast<double>(i), 1);
    EXPECT_LE(series.Bytes(), 36 * count) << count;
    EXPECT_GE(series.Bytes(), 17 * count) << count;
  }
}

// Columns whose borders a double holds, so that the naive way may find a value's column by a division.
TEST(Series, ReductionIsWhatLookingAtEachValueGives) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t limit) { return random() % limit; };
  for (int round = 0; round < 200; ++round) {
    Series series;
    std::vector<std::pair<double, double>> points;
    double place = static_cast<double>(below(50));
    for (std::size_t i = 0, count = below(round < 100 ? 60 : 3000); i < count; ++i) {
      place += static_cast<double>(below(4)) / 4;
      const std::size_t kind = below(40);
      const double value = kind == 0   ? Gap
                           : kind == 1 ? Overload
                           : kind == 2 ? -Overload
                                       : static_cast<double>(below(999));
      series.Append(place, value);
      points.emplace_back(place, value);
    }
    const std::size_t columns = std::size_t{1} << below(7);
    const double width = static_cast<double>(1 + below(200)) / 8;
    const double from = static_cast<double>(below(100)) - 20;
    const double to = from + width * static_cast<double>(columns);
    std::vector<Extremes> expected(columns);
    std::vector<std::size_t> counts(columns);
    for (const auto& [at, value] : points) {
      if (at < from || at > to) continue;
      const std::size_t column = std::min(static_cast<std::size_t>((at - from) / width), columns - 1);
      ++counts[column];
      if (std::isnan(value)) {
        expected[column].Gaps = true;
      } else if (std::isinf(value)) {
        (value > 0 ? expected[column].High : expected[column].Low) = true;
      } else {
        expected[column].Minimum = std::min(expected[column].Minimum, value);
        expected[column].Maximum = std::max(expected[column].Maximum, value);
      }
    }
    const auto reduced = series.Reduce({from, to}, columns);
    ASSERT_EQ(reduced.size(), columns);
    for (std::size_t i = 0; i < columns; ++i) {
      ASSERT_EQ(reduced[i].Values, expected[i]) << "round " << round << ", column " << i;
      ASSERT_EQ(reduced[i].Last - reduced[i].First, counts[i]) << "round " << round << ", column " << i;
    }
  }
}

/// In the toolchain's longest numbers, one value after the other.
Statistics CountedAgain(const std::vector<double>& values) {
  Statistics expected{.Minimum = Overload, .Maximum = -Overload};
  long double sum = 0;
  for (const double value : values) {
    if (std::isnan(value)) ++expected.Gaps;
    if (std::isinf(value)) ++expected.Overloads;
    if (!std::isfinite(value)) continue;
    ++expected.Count;
    sum += value;
    expected.Minimum = std::min(expected.Minimum, value);
    expected.Maximum = std::max(expected.Maximum, value);
  }
  const long double mean = sum / static_cast<long double>(expected.Count);
  long double squares = 0;
  for (const double value : values) {
    if (std::isfinite(value)) squares += (value - mean) * (value - mean);
  }
  expected.Mean = static_cast<double>(mean);
  expected.StandardDeviation = static_cast<double>(std::sqrt(squares / static_cast<long double>(expected.Count - 1)));
  return expected;
}

TEST(Series, StatisticsOfAnyStretchAreThoseOfItsValues) {
  std::mt19937 random(2);
  Series series;
  std::vector<double> values;
  for (int i = 0; i < 10'000; ++i) {
    const std::size_t kind = random() % 500;
    const double noise = static_cast<double>(random() % 1000) / 1000;
    const double value = kind == 0 ? Gap : kind == 1 ? Overload : kind == 2 ? -Overload : 1E6 + i / 1000 + noise;
    series.Append(i, value);
    values.push_back(value);
  }
  std::vector<std::pair<std::size_t, std::size_t>> stretches = {{0, 10'000},  {0, 1024},    {1, 1024},     {0, 1023},
                                                                {1023, 2049}, {1024, 2048}, {1024, 3072},  {1024, 4000},
                                                                {500, 3072},  {700, 1300},  {8192, 10'000}};
  for (int round = 0; round < 200; ++round) {
    const std::size_t first = random() % 9'000;
    stretches.emplace_back(first, first + 100 + random() % (9'900 - first));
  }
  for (const auto& [first, last] : stretches) {
    const auto expected = CountedAgain(
        {values.begin() + static_cast<std::ptrdiff_t>(first), values.begin() + static_cast<std::ptrdiff_t>(last)});
    const Statistics seen = series.StatisticsOver({static_cast<double>(first), static_cast<double>(last - 1)});
    const auto where = testing::Message() << first << " to " << last;
    ASSERT_EQ(seen.Count, expected.Count) << where;
    ASSERT_EQ(seen.Gaps, expected.Gaps) << where;
    ASSERT_EQ(seen.Overloads, expected.Overloads) << where;
    ASSERT_EQ(seen.Minimum, expected.Minimum) << where;
    ASSERT_EQ(seen.Maximum, expected.Maximum) << where;
    ASSERT_DOUBLE_EQ(seen.Mean, expected.Mean) << where;
    ASSERT_NEAR(seen.StandardDeviation, expected.StandardDeviation, expected.StandardDeviation * 1E-12) << where;
  }
}

TEST(Series, BesideItsPlacesThereAreNoStatistics) {
  const Series series = Squares(3000);
  for (const Range& range : {Range{-5, -1}, Range{1500.25, 1500.75}, Range{4000, 5000}, Range{2000, 1000}}) {
    EXPECT_EQ(series.StatisticsOver(range).Count, 0U) << range.From;
    EXPECT_TRUE(IsGap(series.StatisticsOver(range).Mean)) << range.From;
  }
}

} // namespace
} // namespace portico::numbers
