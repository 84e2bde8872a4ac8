#include "simulator/language/ResponseFormat.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace portico::simulator {
namespace {

TEST(ResponseFormat, RealsHaveASignAndNineDigits) {
  EXPECT_EQ(FormatReal(1.000234), "+1.00023400E+00");
  EXPECT_EQ(FormatReal(-0.0125), "-1.25000000E-02");
  EXPECT_EQ(FormatReal(0), "+0.00000000E+00");
  EXPECT_EQ(FormatReal(1E7), "+1.00000000E+07");
}

TEST(ResponseFormat, WhatIsNoNumberHasTheStandardsNumbers) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(FormatReal(infinity), "+9.90000000E+37");
  EXPECT_EQ(FormatReal(-infinity), "-9.90000000E+37");
  EXPECT_EQ(FormatReal(std::numeric_limits<double>::quiet_NaN()), "+9.91000000E+37");
}

TEST(ResponseFormat, ListsAreJoinedByCommas) {
  EXPECT_EQ(FormatReals({}), "");
  EXPECT_EQ(FormatReals(std::array{1.0}), "+1.00000000E+00");
  EXPECT_EQ(FormatReals(std::array{1.0, -2.0}), "+1.00000000E+00,-2.00000000E+00");
}

TEST(ResponseFormat, QuotesInStringsAreDoubled) {
  EXPECT_EQ(FormatString(""), "\"\"");
  EXPECT_EQ(FormatString("it's"), "\"it's\"");
  EXPECT_EQ(FormatString("say \"hi\""), "\"say \"\"hi\"\"\"");
}

TEST(ResponseFormat, BlocksCountTheirBytes) {
  EXPECT_EQ(FormatBlock(""), "#10");
  EXPECT_EQ(FormatBlock("ab\ncd"), "#15ab\ncd");
  EXPECT_EQ(FormatBlock(std::string(1000, 'x')).substr(0, 7), "#41000x");
}

TEST(ResponseFormat, BooleansAreFigures) {
  EXPECT_EQ(FormatBoolean(true), "1");
  EXPECT_EQ(FormatBoolean(false), "0");
}

} // namespace
} // namespace portico::simulator
