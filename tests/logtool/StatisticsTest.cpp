#include "logtool/StatisticsOutput.h"

#include "framework/shared/ErrorAnswer.h"

#include <gtest/gtest.h>

namespace portico::logtool {
namespace {

TEST(StatisticsTest, TheFractionOfAStampIsNoTime) {
  EXPECT_EQ(SecondsOf("1970-01-01T00:00:00.000000000-5:00"), 0);
  EXPECT_EQ(SecondsOf("1970-01-02T01:02:03.000000009-5:00"), 86400 + 3723);
  EXPECT_EQ(*SecondsOf("2004-03-01T00:00:00") - *SecondsOf("2004-02-28T00:00:00"), 2 * 86400);
}

TEST(StatisticsTest, OtherTextsAreNoStamps) {
  for (const char* text : {"", "2004", "2004-13-01T00:00:00", "2004-02-30T00:00:00", "2004-02-09 08:05:03",
                           "x004-02-09T08:05:03", "2004-02-09T08:05:0"}) {
    EXPECT_FALSE(SecondsOf(text)) << text;
  }
}

TEST(StatisticsTest, AnAnswerReportsAnErrorByItsLeadingInteger) {
  for (const char16_t* answer : {u"-113,\"x\"", u"+5", u" 7", u"00100"}) EXPECT_TRUE(ReportsError(answer));
  for (const char16_t* answer : {u"0,\"No error\"", u"+0", u"-000", u"", u"+", u"error 5", u"--5"}) {
    EXPECT_FALSE(ReportsError(answer));
  }
}

} // namespace
} // namespace portico::logtool
