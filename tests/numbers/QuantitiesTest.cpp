#include "numbers/Quantities.h"

#include "numbers/SpecialValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace portico::numbers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Read {
  String Text;
  double Value;
  String Unit;
  bool operator==(const Read&) const = default;
};

std::vector<Read> From(StringView answer) {
  std::vector<Read> read;
  const auto quantities = ReadQuantities(answer);
  if (!quantities) return read;
  for (const Quantity& each : *quantities) read.push_back({String(each.Text), each.Value, String(each.Unit)});
  return read;
}

TEST(Quantities, ANumberKeepsItsLetters) {
  EXPECT_THAT(From(u"+1.00023400E+00"), ElementsAre(Read{u"+1.00023400E+00", 1.000234, u""}));
  EXPECT_THAT(From(u" -5 \r\n"), ElementsAre(Read{u"-5", -5, u""}));
}

TEST(Quantities, AUnitStandsBehindItsNumber) {
  EXPECT_THAT(From(u"1.5 V,20mA;3e3HZ"),
              ElementsAre(Read{u"1.5", 1.5, u"V"}, Read{u"20", 20, u"mA"}, Read{u"3e3", 3000, u"HZ"}));
  EXPECT_THAT(From(u"2.5V/S2,1DB-M,-3.0 %,7 \u03A9,21.5\u00B0C,1/S"),
              ElementsAre(Read{u"2.5", 2.5, u"V/S2"}, Read{u"1", 1, u"DB-M"}, Read{u"-3.0", -3, u"%"},
                          Read{u"7", 7, u"\u03A9"}, Read{u"21.5", 21.5, u"\u00B0C"}, Read{u"1", 1, u"/S"}));
}

TEST(Quantities, AnELetterWithoutDigitsIsAUnit) {
  EXPECT_THAT(From(u"5E,5EV,5E+2EV,5e-V"),
              ElementsAre(Read{u"5", 5, u"E"}, Read{u"5", 5, u"EV"}, Read{u"5E+2", 500, u"EV"}, Read{u"5", 5, u"e-V"}));
}

TEST(Quantities, HexadecimalNumbersHaveNoUnit) {
  EXPECT_THAT(From(u"#HFF,#B101"), ElementsAre(Read{u"#HFF", 255, u""}, Read{u"#B101", 5, u""}));
}

TEST(Quantities, GapsAndOverloadsAreToldByTheirValue) {
  const auto read = From(u"9.91E37,9.9E37 V,-9.9E37");
  ASSERT_EQ(read.size(), 3U);
  EXPECT_TRUE(std::isnan(read[0].Value));
  EXPECT_EQ(read[1].Value, Overload);
  EXPECT_EQ(read[1].Unit, u"V");
  EXPECT_EQ(read[2].Value, -Overload);
}

TEST(Quantities, WhatIsNoNumberIsNone) {
  for (const StringView answer :
       {u"", u" ", u"V", u"1,,2", u"1,", u"\"5\"", u"5 V V", u"5 -V", u"1.2.3", u"#15hello", u"1:30"}) {
    EXPECT_THAT(From(answer), IsEmpty()) << ToUtf8(answer);
  }
}

TEST(Quantities, TheLengthOfANumberIsThatOfItsDigits) {
  EXPECT_EQ(LengthOfNumber(u"12,3"), 2U);
  EXPECT_EQ(LengthOfNumber(u"-1.50E-3V"), 8U);
  EXPECT_EQ(LengthOfNumber(u".5"), 2U);
  EXPECT_EQ(LengthOfNumber(u"5.E"), 2U);
  for (const StringView none : {u"", u"V", u"-", u".", u"+.E5", u" 1"}) EXPECT_EQ(LengthOfNumber(none), 0U);
}

} // namespace
} // namespace portico::numbers
