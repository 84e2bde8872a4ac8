#include "end_to_end/RunLogs.h"
#include "support/Golden.h"
#include "support/doubles/ScriptedServer.h"

#include <csignal>

namespace portico::test {
namespace {

class Log : public testing::Test {
protected:
  std::string Content() const { return BytesOf(Path); }

  const CommandFiles Files;
  const std::string Path = Files.Folder() + "/run.xml";
};

TEST_F(Log, FirstStepsOnTheSimulatedMultimeter) {
  const Outcome outcome = RunPortico({"--log", Path, SimulatedMeter, FirstSteps});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  ExpectGolden("portico-run-first-steps-log.xml", WithoutStamps(Content()));
}

TEST_F(Log, HoldsTheConversationButForRemarksAndBlankLines) {
  const Outcome outcome = RunPortico({"--log", Path, SimulatedMeter, FirstSteps});
  EXPECT_NE(outcome.out, "");
  EXPECT_EQ(Told(Content()), WithoutLines(outcome.out, "# "));
}

TEST_F(Log, AndOutputHoldBracesAndBackslashesAsTheyCame) {
  const ScriptedServer server({{"JSON?", Reaction::Answer("{\"volt\":1.5}\n")},
                               {"PATH?", Reaction::Answer("C:\\data\\new.csv\n")},
                               {"LINES?", Reaction::Answer("one\\par two\n")},
                               {"OPEN?", Reaction::Answer("a{b\n")},
                               {"CLOSE?", Reaction::Answer("a}b\n")}});
  const Outcome outcome = RunPortico(BareOptions + Arguments{"--log", Path, server.ResourceName()},
                                     "JSON?\nPATH?\nLINES?\nOPEN?\nCLOSE?\nDISP:TEXT \"{A}\"\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> JSON?\n< {\"volt\":1.5}\n"
                         "> PATH?\n< C:\\data\\new.csv\n"
                         "> LINES?\n< one\\par two\n"
                         "> OPEN?\n< a{b\n"
                         "> CLOSE?\n< a}b\n"
                         "> DISP:TEXT \"{A}\"\n");
  EXPECT_EQ(Told(Content()), outcome.out);
}

TEST_F(Log, ConversationIsPrintedAsWithoutALog) {
  EXPECT_EQ(RunPortico({"--log", Path, SimulatedMeter, FirstSteps}).out, RunPortico({SimulatedMeter, FirstSteps}).out);
}

TEST_F(Log, IsKeptThoughNothingIsPrinted) {
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--quiet", "--log", Path, SimulatedMeter}, "*OPC?\n").out, "");
  EXPECT_EQ(Told(Content()), "> *OPC?\n< 1\n");
}

TEST_F(Log, OfARunWithoutLinesHasAnEmptySession) {
  EXPECT_EQ(RunPortico({"--log", Path, SimulatedMeter}).status, 0);
  const std::string log = Content();
  EXPECT_EQ(CountOf(log, "<Session "), 1);
  EXPECT_EQ(CountOf(log, "SessionCloseTimeStamp=\""), 1);
  EXPECT_EQ(Told(log), "");
}

TEST_F(Log, ThatExistsIsExtendedByASession) {
  ASSERT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}, "*OPC?\n").status, 0);
  const std::string before = Content();
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}, "*CLS\n").status, 0);
  const std::string log = Content();
  EXPECT_TRUE(IsComplete(log));
  EXPECT_EQ(log.compare(0, before.rfind("</SCPICommLog>"), before, 0, before.rfind("</SCPICommLog>")), 0);
  EXPECT_EQ(CountOf(log, "<Header "), 1);
  EXPECT_EQ(CountOf(log, "<Session "), 2);
  EXPECT_EQ(CountOf(log, "SessionCloseTimeStamp=\""), 2);
  EXPECT_EQ(Told(log), "> *OPC?\n< 1\n> *CLS\n");
}

TEST_F(Log, OfRunsInOneSecondHoldsEachStampOnce) {
  std::string log;
  for (int tries = 0; tries < 40 && SecondsOf(log).size() != 1; ++tries) {
    std::filesystem::remove(Path);
    for (int run = 0; run < 4; ++run) {
      ASSERT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}, "*OPC?\n").status, 0);
    }
    log = Content();
  }
  ASSERT_EQ(SecondsOf(log).size(), 1U) << "Four runs never fell into one second.";
  EXPECT_EQ(Told(log), "> *OPC?\n< 1\n> *OPC?\n< 1\n> *OPC?\n< 1\n> *OPC?\n< 1\n");
  const auto stamps = StampsOf(log);
  EXPECT_EQ(stamps.size(), 16U);
  EXPECT_EQ(std::set<std::string>(stamps.begin(), stamps.end()).size(), 16U) << log;
}

TEST_F(Log, OfTwoRunsAtTheSameTimeHoldsEachEntitysStampOnce) {
  const Arguments command = PorticoRun(BareOptions + Arguments{"--quiet", "--log", Path, SimulatedMeter});
  ASSERT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}).status,
            0); // so that neither has to make it
  std::string lines;
  for (int line = 0; line < 50; ++line) lines += "*OPC?\n";
  Process first(command);
  Process second(command);
  first.Write(lines);
  second.Write(lines);
  for (const Outcome& outcome : {first.Wait(), second.Wait()}) {
    const bool missesSomething =
        outcome.err.find("has been written by another program at the same time") != std::string::npos;
    EXPECT_EQ(outcome.status, missesSomething ? 5 : 0) << outcome.err;
  }
  const std::string log = Content();
  EXPECT_TRUE(IsComplete(log));
  const auto stamps = EntityStampsOf(log);
  EXPECT_EQ(std::set<std::string>(stamps.begin(), stamps.end()).size(), stamps.size());
  EXPECT_EQ(Process({PORTICO_LOG, "stats", Path}).Wait().status, 0);
}

TEST_F(Log, IsBegunAnewOnRequest) {
  ASSERT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}, "*OPC?\n").status, 0);
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--overwrite", "--log", Path, SimulatedMeter}, "*CLS\n").status, 0);
  EXPECT_EQ(CountOf(Content(), "<Session "), 1);
  EXPECT_EQ(Told(Content()), "> *CLS\n");
}

TEST_F(Log, OfAnyFileCanBeBegunAnewOnRequest) {
  Files.Add("run.xml", "no log");
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--overwrite", "--log", Path, SimulatedMeter}, "*CLS\n").status, 0);
  EXPECT_EQ(Told(Content()), "> *CLS\n");
}

TEST_F(Log, ThatCannotBeMadeEndsTheRunBeforeTheInstrumentIsOpened) {
  const ScriptedServer server({});
  for (const std::string& path : {Files.Folder() + "/absent/run.xml", Files.Folder()}) {
    const Outcome outcome = RunPortico(BareOptions + Arguments{"--log", path, server.ResourceName()}, "*CLS\n");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.find("portico-run: cannot log to " + path + ": "), 0U) << outcome.err;
    EXPECT_EQ(CountLines(outcome.err), 1) << outcome.err;
  }
  EXPECT_EQ(server.Connections(), 0U);
}

TEST_F(Log, IsNotMadeOfAnotherFile) {
  const ScriptedServer server({});
  for (const std::string text : {"*CLS\n", "", "<Other/>", "<SCPICommLog></SCPICommLog>"}) {
    Files.Add("run.xml", text);
    EXPECT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, server.ResourceName()}, "*CLS\n").status, 2) << text;
    EXPECT_EQ(Content(), text);
  }
  EXPECT_EQ(server.Connections(), 0U);
}

TEST_F(Log, IsOnDiskBeforeTheNextLineRuns) {
  const ScriptedServer server({{"A?", Reaction::Answer("1\n")}});
  Process process(PorticoRun(BareOptions + Arguments{"--log", Path, server.ResourceName()}));
  process.Write("A?\n*CLS\n");
  server.WaitForReceived("*CLS\r\n");
  const std::string log = Content();
  EXPECT_TRUE(IsComplete(log));
  EXPECT_EQ(Told(log).find("> A?\n< 1\n"), 0U) << log;
  EXPECT_EQ(process.Wait().status, 0);
}

TEST_F(Log, GrowsWhileTheInputStaysOpen) {
  Process process(PorticoRun(BareOptions + Arguments{"--log", Path, SimulatedMeter}));
  std::string told;
  for (int turn = 0; turn < 3; ++turn) {
    process.Write("*OPC?\n");
    EXPECT_EQ(process.ReadLine(), "> *OPC?");
    EXPECT_EQ(process.ReadLine(), "< 1");
    const std::string log = Content();
    EXPECT_TRUE(IsComplete(log));
    EXPECT_EQ(Told(log).find(told), 0U) << log; // the answer itself is printed before it is logged
    told += "> *OPC?\n< 1\n";
  }
  EXPECT_EQ(CountOf(Content(), "SessionCloseTimeStamp=\""), 0);
  EXPECT_EQ(process.Wait().status, 0);
  EXPECT_EQ(Told(Content()), told);
  EXPECT_EQ(CountOf(Content(), "SessionCloseTimeStamp=\""), 1);
}

TEST_F(Log, OfAnInterruptedRunHasItsSessionClosed) {
  Process process(PorticoRun(BareOptions + Arguments{"--log", Path, SimulatedMeter}));
  process.Write("*OPC?\n");
  process.WaitForOutput("< 1\n");
  process.Signal(SIGINT);
  EXPECT_EQ(process.Wait().status, 130);
  EXPECT_EQ(Told(Content()), "> *OPC?\n< 1\n");
  EXPECT_EQ(CountOf(Content(), "SessionCloseTimeStamp=\""), 1);
}

TEST_F(Log, OfARunThatEndsAtABadLineHasItsSessionClosed) {
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}, "*CLS\n\xFF\n").status, 2);
  EXPECT_EQ(Told(Content()), "> *CLS\n");
  EXPECT_EQ(CountOf(Content(), "SessionCloseTimeStamp=\""), 1);
}

TEST_F(Log, OfAKilledRunIsCompleteAndCanBeExtended) {
  {
    const ScriptedServer server({});
    Process process(PorticoRun(BareOptions + Arguments{"--log", Path, server.ResourceName()}));
    process.Write("*CLS\n*RST\n");
    server.WaitForReceived("*RST\r\n");
    process.Signal(SIGKILL);
    EXPECT_EQ(process.Wait().status, -SIGKILL);
  }
  EXPECT_TRUE(IsComplete(Content()));
  EXPECT_EQ(Told(Content()).find("> *CLS\n"), 0U);
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--log", Path, SimulatedMeter}, "*OPC?\n").status, 0);
  const std::string told = Told(Content());
  EXPECT_EQ(told.substr(told.size() - std::string("> *OPC?\n< 1\n").size()), "> *OPC?\n< 1\n");
  EXPECT_EQ(CountOf(Content(), "<Session "), 2);
  EXPECT_EQ(CountOf(Content(), "SessionCloseTimeStamp=\""), 1);
}

TEST_F(Log, HoldsWhatTheDriverSaysOfAFailure) {
  const ScriptedServer server({});
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{"--timeout", "50", "--log", Path, server.ResourceName()}, "A?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(CountLines(outcome.out), 2);
  EXPECT_EQ(Told(Content()), outcome.out);
}

TEST_F(Log, ThatMayNotGrowAnyMoreStaysWholeAndTheRunGoesOn) {
  std::string lines;
  for (int i = 0; i < 40; ++i) lines += "*OPC?\n";
  std::string command = "ulimit -f 4; exec \"$0\" \"$@\""; // blocks of 512 or 1024 bytes
  Process process(Arguments{"/bin/sh", "-c", command} +
                  PorticoRun(BareOptions + Arguments{"--log", Path, SimulatedMeter}));
  process.Write(lines);
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(CountOf(outcome.out, "> *OPC?\n"), 40);
  EXPECT_NE(outcome.err.find("cannot be written: File too large"), std::string::npos) << outcome.err;
  EXPECT_TRUE(IsComplete(Content()));
  EXPECT_LT(CountOf(Content(), "<Instruction "), 40);
}

TEST_F(Log, IsMissingWhenNobodyAsksForIt) {
  EXPECT_EQ(RunPortico({"--overwrite", SimulatedMeter}, "*CLS\n").status, 2);
  EXPECT_FALSE(std::filesystem::exists(Path));
}

} // namespace
} // namespace portico::test
