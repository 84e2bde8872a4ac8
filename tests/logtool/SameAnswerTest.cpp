#include "logtool/SameAnswer.h"

#include <gtest/gtest.h>

namespace portico::logtool {
namespace {

bool IsSame(StringView a, StringView b, std::optional<double> tolerance) {
  const auto place = FindDifference(a, b, tolerance);
  EXPECT_EQ(place.has_value(), FindDifference(b, a, tolerance).has_value()) << "either way round";
  return !place;
}

TEST(SameAnswerTest, WithoutAToleranceEachLetterCounts) {
  EXPECT_TRUE(IsSame(u"1.0,\"a\"", u"1.0,\"a\"", {}));
  EXPECT_FALSE(IsSame(u"1.0", u"1.00", {}));
  EXPECT_FALSE(IsSame(u"1.0", u"+1.0", {}));
  EXPECT_FALSE(IsSame(u"on", u"ON", {}));
  EXPECT_FALSE(IsSame(u"ON", u"ON ", {}));
}

TEST(SameAnswerTest, WithAToleranceNumbersAreNumbers) {
  EXPECT_TRUE(IsSame(u"1.0", u"+1.00E0", 0));
  EXPECT_TRUE(IsSame(u"0", u"-0.0", 0));
  EXPECT_FALSE(IsSame(u"1.0", u"1.0000001", 0));
  EXPECT_TRUE(IsSame(u"1.0,2.0 V;3", u"1.0000001,2.0000001 V;3.0000001", 1e-6));
  EXPECT_FALSE(IsSame(u"1.0,2.0", u"1.0,2.1", 1e-6));
}

TEST(SameAnswerTest, TheToleranceIsAPartOfTheLarger) {
  EXPECT_TRUE(IsSame(u"100", u"99", 0.01));
  EXPECT_FALSE(IsSame(u"100", u"98.9", 0.01));
  EXPECT_TRUE(IsSame(u"-100", u"-99", 0.01));
  EXPECT_FALSE(IsSame(u"-100", u"100", 0.01));
  EXPECT_FALSE(IsSame(u"0", u"1e-9", 0.01)) << "nothing is near 0";
}

TEST(SameAnswerTest, GapsAndOverloadsAreAlikeAmongThemselves) {
  EXPECT_TRUE(IsSame(u"9.91E37", u"+9.910000E+37", 0));
  EXPECT_TRUE(IsSame(u"9.9E37", u"+9.90000E+37", 0));
  EXPECT_FALSE(IsSame(u"9.9E37", u"-9.9E37", 0.5));
  EXPECT_FALSE(IsSame(u"9.91E37", u"9.9E37", 0.5));
  EXPECT_FALSE(IsSame(u"9.91E37", u"1", 0.5));
  EXPECT_FALSE(IsSame(u"9.9E37", u"1", 0.5));
}

TEST(SameAnswerTest, WhatStandsBetweenTheNumbersIsText) {
  EXPECT_FALSE(IsSame(u"1 V", u"1 A", 0.5));
  EXPECT_FALSE(IsSame(u"1,2", u"1;2", 0.5));
  EXPECT_FALSE(IsSame(u"1,2", u"1", 0.5));
  EXPECT_FALSE(IsSame(u"CH1", u"CH2", 0.9)) << "a digit of a name is no number";
  EXPECT_FALSE(IsSame(u"1.2.3", u"1.2.4", 0.9)) << "a version is no number";
  EXPECT_TRUE(IsSame(u"\"A 1.0\"", u"\"A 1\"", 0));
}

TEST(SameAnswerTest, TheDifferenceIsFoundWhereItBegins) {
  EXPECT_EQ(FindDifference(u"abc", u"abd", {}), 2U);
  EXPECT_EQ(FindDifference(u"abc", u"ab", {}), 2U);
  EXPECT_EQ(FindDifference(u"ab", u"abc", {}), 2U);
  EXPECT_EQ(FindDifference(u"1.00,22", u"1,23", 0), 5U);
}

} // namespace
} // namespace portico::logtool
