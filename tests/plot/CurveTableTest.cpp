#include "plot/CurveTable.h"
#include "plot/CurveFile.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::plot {
namespace {

class CurveTableTest : public testing::Test {
protected:
  CurveTableTest() {
    for (const double value : {1.0, 2.0, 4.0, numbers::Gap, -numbers::Overload}) {
      Data.Append(static_cast<double>(Data.Size()) / 2, value);
    }
  }

  numbers::Series Data;
  std::vector<Curve> All{{u"VOLT?", &Data}};
};

TEST_F(CurveTableTest, TellsWhatIsSeenAndWhatStandsAtTheCursors) {
  const auto rows = TableOf(All, {0.5, 2}, {0.7, 1.0});
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].Seen.Count, 2U);
  EXPECT_EQ(rows[0].Seen.Minimum, 2);
  EXPECT_EQ(rows[0].Seen.Mean, 3);
  EXPECT_EQ(rows[0].Seen.Gaps, 1U);
  EXPECT_EQ(rows[0].AtCursors[0], 2);
  EXPECT_EQ(rows[0].AtCursors[1], 4);
  EXPECT_EQ(rows[0].Difference(), 2);
}

TEST_F(CurveTableTest, InFrontOfTheFirstValueOrWithoutACursorThereIsNone) {
  const auto rows = TableOf(All, {0, 2}, {-1, std::nullopt});
  EXPECT_TRUE(numbers::IsGap(rows[0].AtCursors[0]));
  EXPECT_TRUE(numbers::IsGap(rows[0].AtCursors[1]));
  EXPECT_TRUE(numbers::IsGap(rows[0].Difference()));
}

TEST_F(CurveTableTest, IsDescribedForAScreenReader) {
  EXPECT_EQ(Description(TableOf(All, {0, 2}, {}), u""), u"VOLT?: 3 values, minimum 1, maximum 4, gaps 1, overloads 1.");
  EXPECT_EQ(Description({}, u"Nothing is chosen."), u"Nothing is chosen.");
}

TEST_F(CurveTableTest, WhatIsNotThereIsNotDescribed) {
  EXPECT_EQ(Description(TableOf(All, {0, 0.5}, {}), u""), u"VOLT?: 2 values, minimum 1, maximum 2.");
  EXPECT_EQ(Description(TableOf(All, {1.5, 1.5}, {}), u""), u"VOLT?: 0 values, gaps 1.");
}

TEST_F(CurveTableTest, NoMoreThanTwentyCurvesAreDescribed) {
  All.assign(21, {u"A?", &Data});
  All[19].Name = u"TWENTIETH?";
  All[20].Name = u"LAST?";
  const String text = Description(TableOf(All, {0, 0}, {}), u"");
  EXPECT_TRUE(text.ends_with(u"A?: 1 value, minimum 1, maximum 1. TWENTIETH?: 1 value, minimum 1, maximum 1."))
      << ToUtf8(text);
}

TEST_F(CurveTableTest, NumbersAreShort) {
  EXPECT_EQ(NumberText(0.1), u"0.1");
  EXPECT_EQ(NumberText(1.00021948), u"1.00021948");
  EXPECT_EQ(NumberText(1e-9), u"1e-09");
  EXPECT_EQ(NumberText(numbers::Gap), u"");
  EXPECT_EQ(NumberText(-numbers::Overload), u"-overload");
}

TEST_F(CurveTableTest, AFileHasALineForEachValue) {
  std::string file;
  All[0].Name = u"FETC? \"A\",1";
  WriteCurves(All, u"Seconds", [&](std::string_view piece) { file += piece; });
  EXPECT_EQ(file, "Curve,\"Seconds\",Value\r\n"
                  "\"FETC? \"\"A\"\",1\",0,1\r\n"
                  "\"FETC? \"\"A\"\",1\",0.5,2\r\n"
                  "\"FETC? \"\"A\"\",1\",1,4\r\n"
                  "\"FETC? \"\"A\"\",1\",1.5,\r\n"
                  "\"FETC? \"\"A\"\",1\",2,-9.9E+37\r\n");
}

TEST_F(CurveTableTest, AFileComesInPieces) {
  for (int i = 0; i < 100'000; ++i) Data.Append(10 + i, i);
  std::size_t pieces = 0;
  std::size_t largest = 0;
  WriteCurves(All, u"Seconds", [&](std::string_view piece) {
    ++pieces;
    largest = std::max(largest, piece.size());
  });
  EXPECT_GT(pieces, 10U);
  EXPECT_LT(largest, 100'000U);
}

} // namespace
} // namespace portico::plot
