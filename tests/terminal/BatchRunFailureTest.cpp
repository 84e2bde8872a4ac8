#include "terminal/BatchRunBench.h"

#include <csignal>
#include <stdexcept>

namespace portico::terminal {
namespace {

constexpr char UndefinedHeader[] = "-113,\"Undefined header\"";

class BatchRunFailureTest : public test::BatchRunBench {};

TEST_F(BatchRunFailureTest, ReportedErrorIsToldAndTheRunGoesOn) {
  Answers.Listed[":SYST:ERR?"] = UndefinedHeader;
  EXPECT_EQ(Run({u"FOO", u"BAR"}), 1);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: the instrument reports -113,\"Undefined header\"\n"
                       "portico-run: lines.cmd:2: the instrument reports -113,\"Undefined header\"\n");
  EXPECT_EQ(Wire.back(), "close");
}

TEST_F(BatchRunFailureTest, ReportedErrorEndsTheRunOnDemand) {
  Options.StopOnError = true;
  TurnOff({u"SCPIProtocolOPCPacing"});
  Answers.Listed[":SYST:ERR?"] = UndefinedHeader;
  EXPECT_EQ(Run({u"FOO", u"BAR"}), 1);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write FOO", "write :SYST:ERR?", "read", "close"}));
}

TEST_F(BatchRunFailureTest, AnswerOfAQueryIsNoReportedError) {
  Answers.Listed["MEAS?"] = "-113";
  EXPECT_EQ(Run({u"MEAS?"}), 0);
}

TEST_F(BatchRunFailureTest, WithoutAutomaticReadsNoErrorIsReported) {
  TurnOff({u"SCPIProtocolAutoReadAfterQuery"});
  Answers.Listed[":SYST:ERR?"] = UndefinedHeader;
  EXPECT_EQ(Run({u"FOO"}), 0);
}

TEST_F(BatchRunFailureTest, DriverFailureIsToldAndTheChainGoesOn) {
  Driver->Statuses["write *CLS"] = -42;
  EXPECT_EQ(Run({u"*CLS", u"*RST"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: failure -42\n");
  EXPECT_EQ(Wire,
            (Calls{"init the instrument", "set 1150007 0", "write *OPC?", "read", "write *CLS", "write :SYST:ERR?",
                   "read", "write *OPC?", "read", "write *RST", "write :SYST:ERR?", "read", "close"}));
}

TEST_F(BatchRunFailureTest, DriverFailureEndsTheRunOnDemandBehindItsLine) {
  Options.StopOnError = true;
  Driver->Statuses["write *CLS"] = -42;
  EXPECT_EQ(Run({u"*CLS", u"*RST"}), 4);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *OPC?", "read", "write *CLS",
                         "write :SYST:ERR?", "read", "close"}));
}

TEST_F(BatchRunFailureTest, DriverFailureOutranksAReportedError) {
  Answers.Listed[":SYST:ERR?"] = UndefinedHeader;
  Driver->Statuses["write *CLS"] = -42;
  EXPECT_EQ(Run({u"*CLS"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: failure -42\n"
                       "portico-run: lines.cmd:1: the instrument reports -113,\"Undefined header\"\n");
}

TEST_F(BatchRunFailureTest, CauseThatRepeatsIsToldOnceAndCountedAtTheEnd) {
  Driver->Statuses = {{"write *OPC?", -9}, {"write *CLS", -9}, {"write :SYST:ERR?", -9}, {"read", -14}};
  EXPECT_EQ(Run(std::vector<String>(100, u"*CLS")), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: failure -9\n"
                       "portico-run: lines.cmd:100: failure -9 (300 times)\n");
}

TEST_F(BatchRunFailureTest, CauseThatComesAgainBehindASuccessIsToldWithEachPlace) {
  TurnOffPacingAndChecking();
  Driver->Statuses = {{"write B", -9}};
  EXPECT_EQ(Run({u"B", u"B", u"A", u"B"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: failure -9\n"
                       "portico-run: lines.cmd:2: failure -9 (2 times)\n"
                       "portico-run: lines.cmd:4: failure -9\n");
}

TEST_F(BatchRunFailureTest, CauseThatRepeatsAcrossFilesIsCountedInOne) {
  TurnOffPacingAndChecking();
  Driver->Statuses = {{"write B", -9}};
  Sources sources;
  sources.push_back(std::make_unique<FileLines>("one.cmd", std::vector<String>{u"B"}));
  sources.push_back(std::make_unique<FileLines>("two.cmd", std::vector<String>{u"REM a", u"B"}));
  EXPECT_EQ(RunSources(sources), 4);
  EXPECT_EQ(Err.str(), "portico-run: one.cmd:1: failure -9\n"
                       "portico-run: two.cmd:2: failure -9 (2 times)\n");
}

TEST_F(BatchRunFailureTest, FreshConnectionsAreToldOnceUntilThereIsAnAnswer) {
  TurnOffPacingAndChecking();
  Answers.Listed["Q?"] = "1";
  Driver->OnCall = [this](const std::string& call) {
    if (call.starts_with("write")) News.Reconnected("the name");
  };
  EXPECT_EQ(Run({u"A", u"A", u"Q?", u"A"}), 0);
  const std::string notice = "portico-run: the name: the connection was made anew; unread answers are lost";
  EXPECT_EQ(Err.str(), notice + "\n" + notice + " (3 times)\n" + notice + "\n");
}

TEST_F(BatchRunFailureTest, WhatTheDriverDidToGoOnIsTold) {
  TurnOffPacingAndChecking();
  Driver->OnCall = [this](const std::string& call) {
    if (call == "write A") News.Cleared("the name");
    if (call == "write B") News.Restored("the name");
  };
  EXPECT_EQ(Run({u"A", u"B"}), 0);
  EXPECT_EQ(Err.str(), "portico-run: the name: cleared; unread answers are lost\n"
                       "portico-run: the name: the instrument had closed the connection; it was made anew\n");
}

TEST_F(BatchRunFailureTest, AnswerThatIsDroppedIsToldAndADriverFailureButNothingStopsAtIt) {
  TurnOffPacingAndChecking();
  Options.StopOnError = true;
  Answers.Listed["Q?"] = "";
  Driver->OnCall = [this, reads = 0](const std::string& call) mutable {
    if (call == "read" && ++reads == 1) News.AnswerFilledBuffer("the name", 1048575);
  };
  EXPECT_EQ(Run({u"A", u"Q?", u"Q?"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:2: an answer of 1048575 bytes is too long and was dropped\n");
  EXPECT_EQ(Wire.back(), "close");
  EXPECT_EQ(std::count(Wire.begin(), Wire.end(), "read"), 2);
}

TEST_F(BatchRunFailureTest, NewsBehindTheRunGoNowhere) {
  EXPECT_EQ(Run({}), 0);
  News.Reconnected("the name");
  News.Cleared("the name");
  News.Restored("the name");
  News.AnswerFilledBuffer("the name", 1);
  EXPECT_EQ(Err.str(), "");
}

TEST_F(BatchRunFailureTest, ErrorQueryWithoutAnAnswerIsADriverFailureOnly) {
  Answers.Listed.erase(":SYST:ERR?");
  Answers.Listed["*OPC?"] = "-1";
  EXPECT_EQ(Run({u"*CLS"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: failure -7\n");
}

TEST_F(BatchRunFailureTest, InstrumentThatDoesNotOpenEndsTheRun) {
  Driver->Statuses["init the instrument"] = -9;
  EXPECT_EQ(Run({u"*CLS"}), 3);
  EXPECT_EQ(Wire, Calls{"init the instrument"});
  EXPECT_EQ(Err.str(), "portico-run: cannot open the instrument: failure -9\n");
  EXPECT_EQ(Out.str(), "! failure -9\n");
}

TEST_F(BatchRunFailureTest, FailureToSetTheTerminationIsADriverFailure) {
  Driver->Statuses["set 1150007 0"] = -8;
  TurnOffPacingAndChecking();
  EXPECT_EQ(Run({u"*CLS"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: failure -8\n");
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *CLS", "close"}));
}

TEST_F(BatchRunFailureTest, FailureToSetTheTerminationEndsTheRunOnDemand) {
  Options.StopOnError = true;
  Driver->Statuses["set 1150007 0"] = -8;
  EXPECT_EQ(Run({u"*CLS"}), 4);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "close"}));
}

TEST_F(BatchRunFailureTest, FailureToCloseIsADriverFailure) {
  Driver->Statuses["close"] = -4;
  EXPECT_EQ(Run({u"*CLS"}), 4);
  EXPECT_EQ(Err.str(), "portico-run: failure -4\n");
}

/// Gives one line, then refuses the second.
class FaultySource final : public LineSource {
public:
  std::string Name() const override { return "faulty"; }
  std::variant<std::optional<String>, TextFault> Next() override {
    if (std::exchange(m_given, true)) return TextFault{2, 3, "a reason"};
    return std::optional<String>(u"*CLS");
  }
  bool HasLineAtHand() const override { return true; }
  std::optional<std::size_t> LinesLeft() const override { return {}; }

private:
  bool m_given = false;
};

TEST_F(BatchRunFailureTest, RefusedLineEndsTheRunBehindTheLinesBeforeIt) {
  TurnOffPacingAndChecking();
  Sources sources;
  sources.push_back(std::make_unique<FaultySource>());
  sources.push_back(std::make_unique<FileLines>("next.cmd", std::vector<String>{u"*RST"}));
  EXPECT_EQ(RunSources(sources), 2);
  EXPECT_EQ(Err.str(), "portico-run: faulty:2:3: a reason\n");
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *CLS", "close"}));
}

TEST_F(BatchRunFailureTest, InterruptEndsTheRunAtTheLineBoundary) {
  Driver->OnCall = [](const std::string& call) {
    if (call == "write *OPC?") raise(SIGINT);
  };
  EXPECT_EQ(Run({u"*CLS", u"*RST"}), 130);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *OPC?", "read", "write *CLS",
                         "write :SYST:ERR?", "read", "close"}));
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: interrupted\n");
}

TEST_F(BatchRunFailureTest, InterruptLeavesTheSourcesThatFollowAlone) {
  TurnOffPacingAndChecking();
  Driver->OnCall = [](const std::string& call) {
    if (call == "write B") raise(SIGINT);
  };
  Sources sources;
  sources.push_back(std::make_unique<FileLines>("one.cmd", std::vector<String>{u"A", u"B"}));
  sources.push_back(std::make_unique<FileLines>("two.cmd", std::vector<String>{u"C"}));
  EXPECT_EQ(RunSources(sources), 130);
  EXPECT_EQ(Err.str(), "portico-run: one.cmd:2: interrupted\n");
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write A", "write B", "close"}));
}

TEST_F(BatchRunFailureTest, InterruptWhileTheInstrumentOpensHasNoPlace) {
  Driver->OnCall = [](const std::string& call) {
    if (call == "init the instrument") raise(SIGINT);
  };
  EXPECT_EQ(Run({u"A"}), 130);
  EXPECT_EQ(Err.str(), "portico-run: interrupted\n");
}

TEST_F(BatchRunFailureTest, InterruptOutranksWhatWentWrongBefore) {
  Answers.Listed[":SYST:ERR?"] = UndefinedHeader;
  Driver->Statuses["write *CLS"] = -42;
  Driver->OnCall = [](const std::string& call) {
    if (call == "write *CLS") raise(SIGINT);
  };
  EXPECT_EQ(Run({u"*CLS"}), 130);
}

TEST_F(BatchRunFailureTest, SecondInterruptEndsAWaitAndTheInstrumentClosesWithTheFactory) {
  Options.Options = {{u"SCPIProtocolIntervalPacing", u"On"}};
  TurnOffPacingAndChecking();
  Driver->OnCall = [](const std::string& call) {
    if (call != "write *CLS") return;
    raise(SIGINT);
    raise(SIGINT);
  };
  EXPECT_EQ(Run({u"*CLS", u"*RST"}), 130);
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:1: interrupted\n");
  modAppGlobals::ReleaseObjectFactory();
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *CLS", "close"}));
}

TEST_F(BatchRunFailureTest, InternalErrorIsToldWithItsReport) {
  Driver->OnCall = [](const std::string& call) {
    if (call == "write *CLS") throw std::out_of_range("beyond the end");
  };
  EXPECT_EQ(Run({u"*CLS", u"*RST"}), 5);
  const std::string text = Err.str();
  EXPECT_EQ(text.find("portico-run: lines.cmd:1: internal error\n"), 0U) << text;
  for (const char* label : {"CDriverSession.IChannel_WriteData(", "CWriteCmd.ICommand_Execute",
                            "CSCPIInstHandler.IInstProcessor_Send(", "BatchRun.Run("}) {
    EXPECT_NE(text.find(label), std::string::npos) << label << " is missing in\n" << text;
  }
}

TEST_F(BatchRunFailureTest, OutputThatCannotBeWrittenIsTold) {
  Out.setstate(std::ios::badbit);
  EXPECT_EQ(Run({u"*CLS"}), 5);
  EXPECT_EQ(Err.str(), "portico-run: standard output cannot be written\n");
}

} // namespace
} // namespace portico::terminal
