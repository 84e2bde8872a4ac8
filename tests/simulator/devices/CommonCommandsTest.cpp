#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

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

TEST(CommonCommands, ThereAreNoOptions) {
  for (const char* kind : {"dmm", "psu", "scope"}) EXPECT_EQ(Session(kind).Ask("*OPT?"), "0") << kind;
}

TEST(CommonCommands, SettingsAreSavedAndRecalled) {
  Session dmm;
  dmm.Send("CONF:RES 100;:RES:NPLC 10;:SAMP:COUN 5;*SAV 3");
  dmm.Send("*RST;*RCL 3");
  EXPECT_EQ(dmm.Ask("FUNC?;:RES:RANG?;NPLC?;:SAMP:COUN?"), "\"RES\";+1.00000000E+02;+1.00000000E+01;5");
  Session psu("psu");
  psu.Send("INST CH2;:APPL 5,2;:OUTP ON;*SAV 0;*RST;*RCL 0");
  EXPECT_EQ(psu.Ask("INST?;:APPL?;:OUTP?"), "CH2;\"+5.00000000E+00,+2.00000000E+00\";1");
  Session scope("scope");
  scope.Send("CHAN2:SCAL 1;DISP ON;:WAV:POIN 10;*SAV 9;*RST;*RCL 9");
  EXPECT_EQ(scope.Ask("CHAN2:SCAL?;DISP?;:WAV:POIN?"), "+1.00000000E+00;1;10");
}

TEST(CommonCommands, EachPlaceHasItsOwnSettings) {
  Session session("psu");
  session.Send("VOLT 1;*SAV 1;:VOLT 2;*SAV 2;:VOLT 3");
  EXPECT_EQ(session.Ask("*RCL 1;:VOLT?;*RCL 2;:VOLT?"), "+1.00000000E+00;+2.00000000E+00");
}

TEST(CommonCommands, APlaceWithoutSettingsIsRefused) {
  Session session("psu");
  session.Send("VOLT 1;*RCL 4");
  EXPECT_EQ(session.Error(), "-224,\"Illegal parameter value\"");
  EXPECT_EQ(session.Ask("VOLT?"), "+1.00000000E+00");
  session.Send("*SAV 10");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
  session.Send("*RCL -1");
  EXPECT_EQ(session.Error(), "-222,\"Data out of range\"");
}

TEST(CommonCommands, WhatIsSavedLeavesTheStatusAlone) {
  Session session;
  session.Send("*CLS;*ESE 1;*SAV 0;*ESE 2;BAD");
  session.Send("*RCL 0");
  EXPECT_EQ(session.Ask("*ESE?"), "2");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
}

TEST(CommonCommands, ARecallForgetsTheReadings) {
  Session session;
  session.Ask("*SAV 0;READ?");
  session.Send("*RCL 0;FETC?");
  EXPECT_EQ(session.Error(), "-230,\"Data corrupt or stale\"");
}

TEST(CommonCommands, ATriggerThatNothingWaitsForIsIgnored) {
  for (const char* kind : {"dmm", "psu", "scope"}) {
    Session session(kind);
    session.Send("*TRG");
    EXPECT_EQ(session.Error(), "-211,\"Trigger ignored\"") << kind;
  }
}

} // namespace
} // namespace portico::simulator
