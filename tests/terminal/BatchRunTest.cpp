#include "terminal/BatchRunBench.h"

namespace portico::terminal {
namespace {

class BatchRunTest : public test::BatchRunBench {};

TEST_F(BatchRunTest, OpensSetsTheTerminationRunsTheLinesAndCloses) {
  EXPECT_EQ(Run({u"*CLS"}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *OPC?", "read", "write *CLS",
                         "write :SYST:ERR?", "read", "close"}));
  EXPECT_EQ(Err.str(), "");
}

TEST_F(BatchRunTest, ConversationIsPrintedInOrder) {
  Answers.Listed["*IDN?"] = "one\r\ntwo";
  EXPECT_EQ(Run({u"REM a remark", u"", u"*idn?", u"*IDN?"}), 4);
  EXPECT_EQ(Out.str(), "# REM a remark\n"
                       "# \n"
                       "* *OPC?\n"
                       "< 1\n"
                       "> *idn?\n"
                       "< failure -7\n"
                       "* :SYST:ERR?\n"
                       "< 0,\"No error\"\n"
                       "* *OPC?\n"
                       "< 1\n"
                       "> *IDN?\n"
                       "< one\n"
                       "< two\n"
                       "* :SYST:ERR?\n"
                       "< 0,\"No error\"\n");
}

TEST_F(BatchRunTest, NoLineOpensAndCloses) {
  EXPECT_EQ(Run({}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "close"}));
  EXPECT_EQ(Out.str(), "");
}

TEST_F(BatchRunTest, OptionsOfTheRunAreInEffect) {
  Options.Options = {{u"SCPIProtocolOPCPacing", u"Off"},
                     {u"SCPIProtocolAutoReadAfterQuery", u"Off"},
                     {u"SCPIProtocolErrorCheckingCommand", u"STAT:QUE?"},
                     {u"SCPIProtocolTerminationCharacter", u"CRLF"}};
  EXPECT_EQ(Run({u"*IDN?"}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 11", "write *IDN?", "write STAT:QUE?", "close"}));
}

TEST_F(BatchRunTest, ErrorCheckingCanBeOff) {
  TurnOff({u"SCPIProtocolAutoErrorChecking"});
  Answers.Listed["*IDN?"] = "-113";
  EXPECT_EQ(Run({u"*IDN?"}), 0);
  EXPECT_EQ(Wire,
            (Calls{"init the instrument", "set 1150007 0", "write *OPC?", "read", "write *IDN?", "read", "close"}));
}

TEST_F(BatchRunTest, LastWriteOfTheProtocolBringsTheOptionsIntoEffect) {
  Options.Protocol = u"Other";
  Options.Options = {{u"OtherProtocolTerminationCharacter", u"CR"}, {u"OtherProtocolPacingInterval", u"7"}};
  EXPECT_EQ(Run({u"*IDN?"}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 13", "write *IDN?", "close"}));
  EXPECT_EQ(gConfiguration->ItemValue(u"ProtocolName"), u"Other");
  EXPECT_EQ(gConfiguration->ItemValue(u"PacingInterval"), u"7");
}

TEST_F(BatchRunTest, OtherProtocolSendsTheLineOnly) {
  Options.Protocol = u"Other";
  EXPECT_EQ(Run({u"*IDN?", u"*CLS"}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 10", "write *IDN?", "write *CLS", "close"}));
  EXPECT_EQ(Out.str(), "> *IDN?\n> *CLS\n");
}

TEST_F(BatchRunTest, OtherProtocolReadsAfterAQueryOnDemand) {
  Options.Protocol = u"Other";
  Options.ReadAfterQuery = true;
  Answers.Listed["ID?"] = "a meter";
  EXPECT_EQ(Run({u"ID?", u"DISP \"why?\"", u"RESET"}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 10", "write ID?", "read", "write DISP \"why?\"",
                         "write RESET", "close"}));
  EXPECT_EQ(Out.str(), "> ID?\n< a meter\n> DISP \"why?\"\n> RESET\n");
}

TEST_F(BatchRunTest, ReadAfterQueryIsNotKept) {
  Options.Protocol = u"Other";
  Options.ReadAfterQuery = true;
  Run({});
  EXPECT_EQ(gConfiguration->ItemValue(u"SCPIProtocolAutoReadAfterQuery"), u"On");
  Options.ReadAfterQuery = false;
  Run({});
  EXPECT_EQ(gConfiguration->ItemValue(u"AutoReadAfterQueryMode"), u"Off");
}

TEST_F(BatchRunTest, AnswersOfTheOtherProtocolAreNoReportedErrors) {
  Options.Protocol = u"Other";
  Options.ReadAfterQuery = true;
  Answers.Listed["TEMP?"] = "-113";
  EXPECT_EQ(Run({u"TEMP?"}), 0);
}

TEST_F(BatchRunTest, IntervalPacingWaitsBetweenThePacingQueryAndTheLine) {
  Options.Options = {{u"SCPIProtocolIntervalPacing", u"On"}, {u"SCPIProtocolPacingInterval", u"250"}};
  Answers.Listed["Q?"] = "2";
  const auto start = Clock.Now();
  Calls timed;
  Driver->OnCall = [&](const std::string& call) {
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock.Now() - start);
    timed.push_back(std::to_string(elapsed.count()) + " " + call);
  };
  EXPECT_EQ(Run({u"Q?", u"Q?"}), 0);
  EXPECT_EQ(timed, (Calls{"0 init the instrument", "0 set 1150007 0", "0 write *OPC?", "0 read", "0 write Q?", "0 read",
                          "0 write :SYST:ERR?", "0 read", "0 write *OPC?", "0 read", "250 write Q?", "250 read",
                          "250 write :SYST:ERR?", "250 read", "250 close"}));
}

TEST_F(BatchRunTest, LeadingBlanksGoTrailingBlanksStay) {
  TurnOffPacingAndChecking();
  EXPECT_EQ(Run({u"   *CLS  ", u"    ", u"  REM a remark "}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *CLS  ", "close"}));
  EXPECT_EQ(Out.str(), "> *CLS  \n# \n# REM a remark \n");
}

TEST_F(BatchRunTest, PastedHistoryIsNotSentAgain) {
  TurnOffPacingAndChecking();
  EXPECT_EQ(Run({u"\u00A9*OPC?", u"\u00AE1", u"*CLS", u"  \u00AEtext"}), 0);
  EXPECT_EQ(Wire, (Calls{"init the instrument", "set 1150007 0", "write *CLS", "close"}));
  EXPECT_EQ(Out.str(), "> *CLS\n");
}

TEST_F(BatchRunTest, TextGoesOutInTheCodePage) {
  TurnOffPacingAndChecking();
  EXPECT_EQ(Run({u"DISP \u20AC"}), 0);
  EXPECT_EQ(Wire.at(2), "write DISP \x80");
  EXPECT_EQ(Out.str(), "> DISP \xE2\x82\xAC\n");
}

TEST_F(BatchRunTest, SourcesRunOneAfterTheOther) {
  TurnOffPacingAndChecking();
  Sources sources;
  sources.push_back(std::make_unique<FileLines>("one.cmd", std::vector<String>{u"A", u"B"}));
  sources.push_back(std::make_unique<FileLines>("two.cmd", std::vector<String>{u"C"}));
  Driver->Statuses = {{"write B", -5}, {"write C", -6}};
  EXPECT_EQ(RunSources(sources), 4);
  EXPECT_EQ(Out.str(), "> A\n> B\n> C\n");
  EXPECT_EQ(Err.str(), "portico-run: one.cmd:2: failure -5\nportico-run: two.cmd:1: failure -6\n");
}

TEST_F(BatchRunTest, QuietPrintsNoConversation) {
  Options.Quiet = true;
  Answers.Listed[":SYST:ERR?"] = "-113,\"Undefined header\"";
  EXPECT_EQ(Run({u"REM a remark", u"FOO"}), 1);
  EXPECT_EQ(Out.str(), "");
  EXPECT_EQ(Err.str(), "portico-run: lines.cmd:2: the instrument reports -113,\"Undefined header\"\n");
}

TEST_F(BatchRunTest, InstrumentIsOnRecordWhileItIsOpen) {
  String name;
  String opened;
  Driver->OnCall = [&](const std::string& call) {
    if (call != "write *CLS") return;
    name = gConfiguration->ItemValue(u"InstrumentName");
    opened = gConfiguration->ItemValue(u"InstrumentOpened");
  };
  Run({u"*CLS"});
  EXPECT_EQ(name, u"the instrument");
  EXPECT_EQ(opened, u"True");
  EXPECT_EQ(gConfiguration->ItemValue(u"InstrumentName"), u"");
  EXPECT_EQ(gConfiguration->ItemValue(u"InstrumentOpened"), u"False");
}

TEST_F(BatchRunTest, LeavesNoSubscriberBehind) {
  TurnOffPacingAndChecking();
  Run({u"A"});
  Run({u"B"});
  EXPECT_EQ(Out.str(), "> A\n> B\n");
}

TEST_F(BatchRunTest, ControlCharactersAreQuestionMarksOnATerminal) {
  TurnOffPacingAndChecking();
  Answers.Listed["Q?"] = "\x1B[2Jred\a\tend";
  EXPECT_EQ(Run({u"Q?", u"REM \a"}), 0);
  EXPECT_EQ(Out.str(), "> Q?\n< \x1B[2Jred\a\tend\n# REM \a\n");
  Out.str({});
  Options.ToTerminal = true;
  EXPECT_EQ(Run({u"Q?", u"REM \a"}), 0);
  EXPECT_EQ(Out.str(), "> Q?\n< ?[2Jred?\tend\n# REM ?\n");
}

TEST_F(BatchRunTest, DiagnosticsNameTheProgram) {
  BatchRun(Options, Window, Interrupts, News, Out, Err).Diagnose("a text");
  EXPECT_EQ(Err.str(), "portico-run: a text\n");
}

} // namespace
} // namespace portico::terminal
