#include "timing/NearestRank.h"

#include <gtest/gtest.h>

namespace portico::timing {
namespace {

TEST(NearestRank, SoManyPercentDoNotExceedIt) {
  EXPECT_EQ(NearestRank(1000, 50), 500U);
  EXPECT_EQ(NearestRank(1000, 99), 990U);
  EXPECT_EQ(NearestRank(1001, 50), 501U);
  EXPECT_EQ(NearestRank(3, 50), 2U);
  EXPECT_EQ(NearestRank(3, 99), 3U);
  EXPECT_EQ(NearestRank(7, 100), 7U);
}

TEST(NearestRank, OneIsEveryRankAndNoneHasNone) {
  EXPECT_EQ(NearestRank(1, 1), 1U);
  EXPECT_EQ(NearestRank(1, 99), 1U);
  EXPECT_EQ(NearestRank(0, 50), 0U);
}

TEST(NearestRank, LargeCountsDoNotOverflow) {
  EXPECT_EQ(NearestRank(18'000'000'000'000'000'000U, 99), 17'820'000'000'000'000'000U);
}

} // namespace
} // namespace portico::timing
