#include "document/log/LogErrors.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

using Finding = LogErrors::Finding;

class LogErrorsTest : public testing::Test {
protected:
  Finding Asked(StringView query, StringView answer) {
    EXPECT_EQ(Errors.Add(u"AutomaticInstruction", query), Finding::None);
    return Errors.Add(u"Response", answer);
  }
  Finding Answered(StringView answer) {
    EXPECT_EQ(Errors.Add(u"Instruction", u"READ?\r\n"), Finding::None);
    return Errors.Add(u"Response", answer);
  }

  LogErrors Errors;
};

TEST_F(LogErrorsTest, AnAnswerOfTheErrorQueryReportsAnErrorIfItsIntegerIsNot0) {
  EXPECT_EQ(Asked(u":SYST:ERR?\r\n", u"-113,\"Undefined header\"\r\n"), Finding::ErrorAnswer);
  EXPECT_EQ(Asked(u"ERR?", u"5"), Finding::ErrorAnswer);
  EXPECT_EQ(Asked(u":SYST:ERR?\r\n", u"0,\"No error\"\r\n"), Finding::None);
}

TEST_F(LogErrorsTest, OtherAnswersReportNone) {
  EXPECT_EQ(Asked(u" *opc? \r\n", u"1\r\n"), Finding::None) << "the pacing query";
  EXPECT_EQ(Answered(u"-113\r\n"), Finding::None);
  Errors.Add(u"AutomaticInstruction", u":SYST:ERR?");
  Errors.Add(u"Configuration", u"x");
  EXPECT_EQ(Errors.Add(u"Response", u"-113"), Finding::None) << "not directly behind it";
}

TEST_F(LogErrorsTest, AMessageOfTheDriverIsOne) {
  EXPECT_EQ(Answered(u"The connection was lost.\r\n"), Finding::DriverMessage);
  EXPECT_EQ(Answered(u" The connection was lost. \r\n"), Finding::DriverMessage);
  EXPECT_EQ(Answered(u"Timeout expired before the answer was complete: 10.0.0.7, port 5025.\r\n"),
            Finding::DriverMessage);
  EXPECT_EQ(Asked(u":SYST:ERR?", u"There is no connection."), Finding::DriverMessage);
  EXPECT_EQ(Answered(u"The connection was lost"), Finding::None);
  EXPECT_EQ(Answered(u"No error.\r\n"), Finding::None);
  EXPECT_EQ(Errors.Add(u"Instruction", u"The connection was lost."), Finding::None);
}

TEST_F(LogErrorsTest, KnowsWhatWasTypedLastInTheSession) {
  EXPECT_EQ(Errors.Instruction(), u"");
  Errors.Add(u"Instruction", u"VOLT 5 \r\n");
  Asked(u":SYST:ERR?", u"-222");
  EXPECT_EQ(Errors.Instruction(), u"VOLT 5 ");
  Errors.Begin();
  EXPECT_EQ(Errors.Instruction(), u"");
}

TEST_F(LogErrorsTest, AQueryOfTheSessionBeforeAsksNothing) {
  Errors.Add(u"AutomaticInstruction", u":SYST:ERR?");
  Errors.Begin();
  EXPECT_EQ(Errors.Add(u"Response", u"-113"), Finding::None);
}

} // namespace
} // namespace portico::test
