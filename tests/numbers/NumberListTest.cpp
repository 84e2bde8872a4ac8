#include "numbers/NumberList.h"

#include "numbers/ReadFrom.h"
#include "numbers/SpecialValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace portico::numbers {
namespace {

using testing::ElementsAre;
using testing::NanSensitiveDoubleEq;

Values NumbersOf(StringView answer) { return ReadFrom(ReadNumberList(answer)); }

Fault ListFault(StringView answer) { return FaultIn(ReadNumberList(answer)); }

TEST(NumberList, IntegersFractionsAndExponentsAreNumbers) {
  EXPECT_THAT(NumbersOf(u"42"), ElementsAre(42.0));
  EXPECT_THAT(NumbersOf(u"0,-7,+13"), ElementsAre(0.0, -7.0, 13.0));
  EXPECT_THAT(NumbersOf(u"1.5,-.25,+.5,3."), ElementsAre(1.5, -0.25, 0.5, 3.0));
  EXPECT_THAT(NumbersOf(u"+1.00023400E+00,-2.5E-3,1e3"), ElementsAre(1.000234, -0.0025, 1000.0));
}

TEST(NumberList, WhiteSpaceAroundNumbersIsPassedOver) {
  EXPECT_THAT(NumbersOf(u"  1 ,\t2\t, 3 \r\n"), ElementsAre(1.0, 2.0, 3.0));
}

TEST(NumberList, AnswersToSeveralQueriesAreOneList) {
  EXPECT_THAT(NumbersOf(u"1;2,3;4"), ElementsAre(1.0, 2.0, 3.0, 4.0));
}

TEST(NumberList, HexadecimalOctalAndBinaryAreNumbers) {
  EXPECT_THAT(NumbersOf(u"#HFF,#hff,#Q17,#q17,#B101,#b101"), ElementsAre(255.0, 255.0, 15.0, 15.0, 5.0, 5.0));
  EXPECT_THAT(NumbersOf(u"#HFFFFFFFFFFFFFFFF"), ElementsAre(18446744073709551615.0));
}

TEST(NumberList, TheStandardsNotANumberIsAGap) {
  EXPECT_THAT(NumbersOf(u"1,9.91E37,+9.91000000E+37,2"),
              ElementsAre(NanSensitiveDoubleEq(1), NanSensitiveDoubleEq(Gap), NanSensitiveDoubleEq(Gap),
                          NanSensitiveDoubleEq(2)));
  EXPECT_THAT(NumbersOf(u"9.90999980E+37"), ElementsAre(NanSensitiveDoubleEq(Gap))) << "as a float has it";
}

TEST(NumberList, TheStandardsInfinitiesAreOverloads) {
  EXPECT_THAT(NumbersOf(u"9.9E37,+9.90000000E+37,-9.9E37,9.8999998E+37"),
              ElementsAre(Overload, Overload, -Overload, Overload));
}

TEST(NumberList, NumbersNextToTheStandardsMarksAreNumbers) {
  EXPECT_THAT(NumbersOf(u"9.89E37,9.905E37,9.92E37,-9.91E37"), ElementsAre(9.89E37, 9.905E37, 9.92E37, -9.91E37));
}

TEST(NumberList, NumbersThatNoDoubleHoldsAreOverloadsOrNothing) {
  EXPECT_THAT(NumbersOf(u"1E400,-1E400,+1e+400"), ElementsAre(Overload, -Overload, Overload));
  EXPECT_THAT(NumbersOf(u"1E-400,-1E-400"), ElementsAre(0.0, 0.0));
  EXPECT_THAT(NumbersOf(u"1E99999999999999999999,1E-99999999999999999999"), ElementsAre(Overload, 0.0));
  EXPECT_THAT(NumbersOf(String(400, u'9') + u",0." + String(400, u'0') + u"1"), ElementsAre(Overload, 0.0));
  EXPECT_THAT(NumbersOf(u"0.00001E400,00000.1E-400"), ElementsAre(Overload, 0.0));
}

TEST(NumberList, WhatIsNoNumberIsToldWithItsPlace) {
  EXPECT_EQ(ListFault(u"1,2, ON").Place, 5U);
  EXPECT_EQ(ListFault(u"1,2, ON").Text, u"Number 3, at character 6, is none: ON");
  EXPECT_EQ(ListFault(u"1,,2").Place, 2U);
  EXPECT_EQ(ListFault(u"1,,2").Text, u"Number 2, at character 3, is missing.");
  EXPECT_EQ(ListFault(u"1,2,").Place, 4U);
  EXPECT_EQ(ListFault(u"").Text, u"The answer is empty.");
  EXPECT_EQ(ListFault(u" \r\n").Place, 3U);
}

TEST(NumberList, TheQuoteOfAFaultIsShort) {
  EXPECT_EQ(ListFault(u"abcdefghijklmnopqrstuvwx").Text,
            u"Number 1, at character 1, is none: abcdefghijklmnopqrstuvwx");
  EXPECT_EQ(ListFault(u"abcdefghijklmnopqrstuvwxy").Text,
            u"Number 1, at character 1, is none: abcdefghijklmnopqrstuvwx\u2026");
}

TEST(NumberList, NamesStringsAndHalvesOfNumbersAreNone) {
  for (const StringView text : {u"ON",       u"OFF",    u"\"1\"",  u"1 2",    u"1V",     u"1.5 V",
                                u"--1",      u"+-1",    u"-+1",    u"-",      u"+",      u".",
                                u"E5",       u"1E",     u"1E+",    u"1.2.3",  u"0x10",   u"inf",
                                u"nan",      u"#",      u"#H",     u"#HG",    u"#HFFG",  u"#Q18",
                                u"#B12",     u"#Q8",    u"#B2",    u"#X1",    u"#H-1",   u"#H10000000000000000",
                                u"#15hello", u"1E400V", u"\u0661", u"\uFF11", u"1\u00B5"}) {
    EXPECT_EQ(ListFault(text).Place, 0U) << ToUtf8(text);
  }
}

TEST(NumberList, ALongListIsReadToItsEnd) {
  String text;
  for (int i = 0; i < 20'000; ++i) text.append(u"+1.5E+00,");
  text.append(u"7");
  const Values values = NumbersOf(text);
  ASSERT_EQ(values.size(), 20'001U);
  EXPECT_EQ(values[19'999], 1.5);
  EXPECT_EQ(values.back(), 7.0);
}

} // namespace
} // namespace portico::numbers
