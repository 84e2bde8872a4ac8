#include "end_to_end/RunLogs.h"
#include "support/doubles/ScriptedServer.h"

#include <csignal>

namespace portico::test {
namespace {

TEST(Turns, RepeatAllFilesOverOneConnection) {
  const CommandFiles files;
  const std::string one = files.Add("one.cmd", "*CLS\n");
  const std::string two = files.Add("two.cmd", "REM two\n*RST\n");
  const ScriptedServer server({});
  const Outcome outcome = RunPortico(BareOptions + Arguments{"--repeat", "3", server.ResourceName(), one, two});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "> *CLS\n# REM two\n> *RST\n> *CLS\n# REM two\n> *RST\n> *CLS\n# REM two\n> *RST\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*CLS\r\n*RST\r\n*CLS\r\n*RST\r\n*CLS\r\n*RST\r\n");
  EXPECT_EQ(server.Connections(), 1U);
}

TEST(Turns, StandardInputIsReadToItsEndFirst) {
  const ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{"--repeat", "2", server.ResourceName()}));
  process.Write("*CLS\n");
  process.Write("*RST");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> *CLS\n> *RST\n> *CLS\n> *RST\n");
}

TEST(Turns, LineOfStandardInputThatIsRefusedLetsNothingBeSent) {
  const Outcome outcome = RunPortico({"--repeat", "2", SimulatedMeter}, "*CLS\n\xFF\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: standard input:2:1: not UTF-8; save the file as UTF-8\n");
}

TEST(Turns, WithoutALineThereIsNothingToRepeat) {
  const Outcome outcome = RunPortico({"--repeat", "forever", SimulatedMeter});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "portico-run: --repeat: there is no line to run\n");
}

TEST(Turns, OneSessionOfTheLogHasThemAll) {
  const CommandFiles files;
  const std::string log = files.Folder() + "/log.xml";
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--repeat", "3", "--log", log, SimulatedMeter}, "*CLS\n*OPC?\n").status,
            0);
  const std::string written = BytesOf(log);
  EXPECT_TRUE(IsComplete(written));
  EXPECT_EQ(CountOf(written, "<Session "), 1);
  EXPECT_EQ(Told(written), "> *CLS\n> *OPC?\n< 1\n> *CLS\n> *OPC?\n< 1\n> *CLS\n> *OPC?\n< 1\n");
}

TEST(Turns, TakeTheirTime) {
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{"--repeat", "3", "--every", "0.05", "--timing", SimulatedMeter}, "*OPC?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> *OPC?\n< 1\n> *OPC?\n< 1\n> *OPC?\n< 1\n");
  EXPECT_NE(outcome.err.find("\n      3 "), std::string::npos) << outcome.err;
}

TEST(Turns, InterruptEndsTheWaitBetweenThem) {
  const CommandFiles files;
  const std::string lines = files.Add("lines.cmd", "*CLS\nREM done\n");
  ScriptedServer server({});
  Process process(
      PorticoRun(BareOptions + Arguments{"--repeat", "forever", "--every", "1000000", server.ResourceName(), lines}));
  process.WaitForOutput("# REM done\n"); // is written out in front of the wait
  process.Signal(SIGINT);
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "portico-run: " + lines + ":2 (turn 1): interrupted\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*CLS\r\n");
}

TEST(Turns, InterruptEndsThemBehindAnInstruction) {
  const CommandFiles files;
  const std::string lines = files.Add("lines.cmd", "FIRST?\nSECOND?\n*RST\n");
  ScriptedServer server({{"FIRST?", Reaction::Answer("1\n")}});
  Process process(
      PorticoRun(BareOptions + Arguments{"--repeat", "forever", "--timeout", "60000", server.ResourceName(), lines}));
  server.WaitForReceived("SECOND?\r\n");
  server.Send("2\n");
  server.WaitForReceived("*RST\r\nFIRST?\r\nSECOND?\r\n");
  process.Signal(SIGINT);
  server.Send("2\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "portico-run: " + lines + ":2 (turn 2): interrupted\n");
}

TEST(Turns, StopOnErrorEndsThemAll) {
  const Outcome outcome =
      RunPortico({"--repeat", "forever", "--every", "1000000", "--stop-on-error", SimulatedMeter}, "*CLS\nFOO\n*RST\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "portico-run: standard input:2 (turn 1): the instrument reports -113,\"Undefined header\"\n");
}

} // namespace
} // namespace portico::test
