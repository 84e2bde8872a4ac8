#include "numbers/Statistics.h"

#include <gtest/gtest.h>

#include <span>
#include <vector>

namespace portico::numbers {
namespace {

TEST(Statistics, CountBoundsMeanAndDeviationAreTold) {
  const double values[] = {2, 4, 4, 4, 5, 5, 7, 9};
  const Statistics statistics = StatisticsOf(values);
  EXPECT_EQ(statistics.Count, 8U);
  EXPECT_EQ(statistics.Minimum, 2);
  EXPECT_EQ(statistics.Maximum, 9);
  EXPECT_EQ(statistics.Mean, 5);
  EXPECT_DOUBLE_EQ(statistics.StandardDeviation, 2.1380899352993950); // the root of 32/7
}

TEST(Statistics, GapsAndOverloadsAreLeftOutAndCounted) {
  const double values[] = {Gap, 1, Overload, 3, -Overload, Gap, Gap};
  const Statistics statistics = StatisticsOf(values);
  EXPECT_EQ(statistics.Count, 2U);
  EXPECT_EQ(statistics.Gaps, 3U);
  EXPECT_EQ(statistics.Overloads, 2U);
  EXPECT_EQ(statistics.Minimum, 1);
  EXPECT_EQ(statistics.Maximum, 3);
  EXPECT_EQ(statistics.Mean, 2);
  EXPECT_DOUBLE_EQ(statistics.StandardDeviation, 1.4142135623730951);
}

TEST(Statistics, OfNothingNothingIsTold) {
  const double marks[] = {Gap, Overload};
  for (const Statistics& statistics : {StatisticsOf(std::span<const double>()), StatisticsOf(marks)}) {
    EXPECT_EQ(statistics.Count, 0U);
    EXPECT_TRUE(IsGap(statistics.Minimum));
    EXPECT_TRUE(IsGap(statistics.Maximum));
    EXPECT_TRUE(IsGap(statistics.Mean));
    EXPECT_TRUE(IsGap(statistics.StandardDeviation));
  }
}

TEST(Statistics, OneValueHasNoDeviation) {
  const double values[] = {-7.5};
  const Statistics statistics = StatisticsOf(values);
  EXPECT_EQ(statistics.Minimum, -7.5);
  EXPECT_EQ(statistics.Maximum, -7.5);
  EXPECT_EQ(statistics.Mean, -7.5);
  EXPECT_TRUE(IsGap(statistics.StandardDeviation));
}

TEST(Statistics, ALargeOffsetTakesNothingFromTheDeviation) {
  const double values[] = {1E9 + 4, 1E9 + 7, 1E9 + 13, 1E9 + 16};
  EXPECT_EQ(StatisticsOf(values).Mean, 1E9 + 10);
  EXPECT_DOUBLE_EQ(StatisticsOf(values).StandardDeviation, 5.4772255750516612); // the root of 30
  const double neighbours[] = {1E16, 1E16 + 2};
  EXPECT_DOUBLE_EQ(StatisticsOf(neighbours).StandardDeviation, 1.4142135623730951);
}

TEST(Statistics, EqualValuesDoNotDeviate) {
  const std::vector<double> values(10'001, 0.1);
  EXPECT_EQ(StatisticsOf(values).Mean, 0.1);
  EXPECT_EQ(StatisticsOf(values).StandardDeviation, 0);
  const double three[] = {0.003, 0.003, 0.003}; // of which a third of the sum is another double
  EXPECT_EQ(StatisticsOf(three).Mean, 0.003);
  EXPECT_EQ(StatisticsOf(three).StandardDeviation, 0);
}

TEST(Statistics, SmallValuesCountBesideLargeOnes) {
  const double values[] = {1E16, 1, 2, -1E16};
  EXPECT_EQ(StatisticsOf(values).Mean, 0.75);
}

TEST(Statistics, ManyValuesLoseNothing) {
  std::vector<double> values;
  for (int i = 0; i < 100'000; ++i) values.push_back(i % 2 == 0 ? 0.1 : 0.3);
  EXPECT_DOUBLE_EQ(StatisticsOf(values).Mean, 0.2);
  EXPECT_DOUBLE_EQ(StatisticsOf(values).StandardDeviation, 0.10000050000375003);
}

TEST(Statistics, HugeAndTinyValuesStayWithinTheRange) {
  const double huge[] = {1.5E308, 1.5E308, 1.5E308, 1.4E308};
  EXPECT_DOUBLE_EQ(StatisticsOf(huge).Mean, 1.475E308);
  EXPECT_DOUBLE_EQ(StatisticsOf(huge).StandardDeviation, 5E306);
  const double apart[] = {-1E308, 1E308, 0};
  EXPECT_EQ(StatisticsOf(apart).Mean, 0);
  EXPECT_DOUBLE_EQ(StatisticsOf(apart).StandardDeviation, 1E308);
  const double tiny[] = {1E-200, 3E-200};
  EXPECT_DOUBLE_EQ(StatisticsOf(tiny).Mean, 2E-200);
  EXPECT_DOUBLE_EQ(StatisticsOf(tiny).StandardDeviation, 1.4142135623730951E-200);
}

TEST(Statistics, DeviationThatNoDoubleHoldsIsAnOverload) {
  const double values[] = {-1.7E308, 1.7E308};
  EXPECT_EQ(StatisticsOf(values).StandardDeviation, Overload);
}

TEST(Statistics, ArePutTogetherOfPartsCutAnywhere) {
  const std::vector<std::vector<double>> samples = {
      {2, 4, 4, 4, 5, 5, 7, 9},
      {Gap, 1, Overload, 3, -Overload, Gap, Gap},
      {Gap, Overload},
      {-7.5},
      {1E9 + 4, 1E9 + 7, 1E9 + 13, 1E9 + 16},
      {1E16, 1E16 + 2},
      {0.003, 0.003, 0.003},
      {0, 0, -0.003, 0},
      {1E16, 1, 2, -1E16},
      {1.5E308, 1.5E308, 1.5E308, 1.4E308},
      {-1E308, 1E308, 0},
      {1E-200, 3E-200},
      {1E-200, 3E-200, 1E200, 1E200},
      {-1.7E308, 1.7E308},
  };
  for (const auto& values : samples) {
    const Statistics whole = StatisticsOf(values);
    for (std::size_t a = 0; a <= values.size(); ++a) {
      for (std::size_t b = a; b <= values.size(); ++b) {
        const std::span all(values);
        const Moments parts[] = {MomentsOf(all.first(a)), MomentsOf(all.subspan(a, b - a)), MomentsOf(all.subspan(b))};
        const Statistics joined = StatisticsOf(parts);
        const auto where = testing::Message() << values.front() << " and on, cut at " << a << " and " << b;
        EXPECT_EQ(joined.Count, whole.Count) << where;
        EXPECT_EQ(joined.Gaps, whole.Gaps) << where;
        EXPECT_EQ(joined.Overloads, whole.Overloads) << where;
        const auto same = [&where](double joinedNumber, double wholeNumber) {
          EXPECT_EQ(IsGap(joinedNumber), IsGap(wholeNumber)) << where;
          if (!IsGap(wholeNumber)) {
            EXPECT_DOUBLE_EQ(joinedNumber, wholeNumber) << where;
          }
        };
        same(joined.Minimum, whole.Minimum);
        same(joined.Maximum, whole.Maximum);
        same(joined.Mean, whole.Mean);
        same(joined.StandardDeviation, whole.StandardDeviation);
      }
    }
  }
}

TEST(Statistics, NoPartsAreNoValues) {
  EXPECT_EQ(StatisticsOf(std::span<const Moments>()).Count, 0U);
  EXPECT_TRUE(IsGap(StatisticsOf(std::span<const Moments>()).Minimum));
}

} // namespace
} // namespace portico::numbers
