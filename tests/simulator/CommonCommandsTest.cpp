#include "Session.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

TEST(CommonCommands, IdentificationHasFourFields) {
  Session session;
  const std::string answer = session.Ask("*IDN?");
  EXPECT_EQ(std::count(answer.begin(), answer.end(), ','), 3);
  EXPECT_EQ(answer.substr(0, answer.find(',')), "TOLVANE INSTRUMENTS");
}

TEST(CommonCommands, EventRegister) {
  Session session;
  EXPECT_EQ(session.Ask("*ESR?"), "128");
  EXPECT_EQ(session.Ask("*ESR?"), "0");
  session.Send("BAD");
  session.Send("VOLT:RANG 1E9");
  EXPECT_EQ(session.Ask("*ESR?"), "48");
}

TEST(CommonCommands, Masks) {
  Session session;
  session.Send("*ESE 60;*SRE 255");
  EXPECT_EQ(session.Ask("*ESE?;*SRE?"), "60;191");
  session.Send("*ESE #H10");
  EXPECT_EQ(session.Ask("*ESE?"), "16");
  session.Send("*ESE 256");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("*SRE");
  EXPECT_EQ(session.Error(), "-109,\"Missing parameter\"");
}

TEST(CommonCommands, StatusByteWithUnreadAnswer) {
  Session session;
  EXPECT_EQ(session.Ask("*STB?"), "0");
  EXPECT_EQ(session.Ask("*IDN?;*STB?").substr(40), "16");
  session.Send("*IDN?");
  session.Send("*STB?");
  session.Read();
  EXPECT_EQ(session.Read(), "16");
}

TEST(CommonCommands, MasterSummary) {
  Session session;
  session.Send("*CLS;*ESE 32;*SRE 32;BAD");
  EXPECT_EQ(session.Ask("*STB?"), "100");
  EXPECT_EQ(session.Ask("*STB?"), "100");
  session.Send("*CLS");
  EXPECT_EQ(session.Ask("*STB?;*ESE?;*SRE?"), "0;32;32");
}

TEST(CommonCommands, CompletionIsReportedAtOnceWhenIdle) {
  Session session;
  session.Send("*CLS;*OPC");
  EXPECT_EQ(session.Ask("*ESR?"), "1");
  EXPECT_EQ(session.Ask("*OPC?"), "1");
}

TEST(CommonCommands, CompletionIsReportedWhenTheOperationEnds) {
  Session session;
  session.Send("*CLS;INIT;*OPC");
  EXPECT_EQ(session.Ask("*ESR?"), "0");
  session.Advance(milliseconds(19));
  EXPECT_EQ(session.Ask("*ESR?"), "0");
  session.Advance(milliseconds(1));
  EXPECT_EQ(session.Ask("*ESR?"), "1");
}

TEST(CommonCommands, ClearForgetsTheCompletion) {
  Session session;
  session.Send("*CLS;INIT;*OPC;*CLS");
  session.Advance(milliseconds(100));
  EXPECT_EQ(session.Ask("*ESR?"), "0");
}

TEST(CommonCommands, CompletionQueryAnswersWhenTheOperationEnds) {
  Session session;
  session.Send("INIT;*OPC?");
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Connection().NextEvent(), session.Now() + milliseconds(20));
  session.Advance(milliseconds(20));
  EXPECT_EQ(session.Read(), "1");
  EXPECT_FALSE(session.Connection().NextEvent());
}

TEST(CommonCommands, WaitHoldsWhatFollows) {
  Session session;
  session.Send("INIT;*WAI;*IDN?");
  session.Send("*ESE?");
  session.Advance(milliseconds(19));
  EXPECT_FALSE(session.Read());
  session.Advance(milliseconds(1));
  EXPECT_TRUE(session.Read()->starts_with("TOLVANE"));
  EXPECT_EQ(session.Read(), "0");
}

TEST(CommonCommands, SelfTestTakesItsTimeAndPasses) {
  Session session;
  const TimePoint start = session.Now();
  EXPECT_EQ(session.Ask("*TST?"), "0");
  EXPECT_EQ(session.Now() - start, milliseconds(5));
}

TEST(CommonCommands, ResetTakesItsTimeAndHoldsWhatFollows) {
  Session session;
  const TimePoint start = session.Now();
  session.Ask("*RST;*IDN?");
  EXPECT_EQ(session.Now() - start, milliseconds(2));
}

TEST(CommonCommands, ResetAbortsAndForgetsTheCompletion) {
  Session session;
  session.Send("*CLS;*ESE 60;BAD");
  session.Send("INIT;*OPC;*RST");
  session.Advance(milliseconds(100));
  EXPECT_EQ(session.Ask("*ESR?"), "32");
  EXPECT_EQ(session.Ask("*ESE?"), "60");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
  session.Send("FETC?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
}

} // namespace
} // namespace portico::simulator
