#include "framework/shared/ErrorAnswer.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

TEST(ReportsError, LeadingIntegerOtherThanZero) {
  for (const StringView answer :
       {u"-113,\"Undefined header\"", u"-113", u"+100", u"100", u"1,\"text\"", u"  -222", u"007", u"+010,x"}) {
    EXPECT_TRUE(ReportsError(answer)) << ToUtf8(answer);
  }
}

TEST(ReportsError, ZeroInAnyForm) {
  for (const StringView answer : {u"0", u"+0,\"No error\"", u"-0", u"000,\"No error\"", u" 0", u"0,1"}) {
    EXPECT_FALSE(ReportsError(answer)) << ToUtf8(answer);
  }
}

TEST(ReportsError, AnswerWithoutALeadingInteger) {
  for (const StringView answer : {u"", u"No error", u"\"-113\"", u"+", u"-", u"--1", u",1", u"E1", u"#15"}) {
    EXPECT_FALSE(ReportsError(answer)) << ToUtf8(answer);
  }
}

} // namespace
} // namespace portico
