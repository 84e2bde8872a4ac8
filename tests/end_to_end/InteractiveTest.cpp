#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

const std::string Identity = "< TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0";

TEST(Interactive, AnswerArrivesWhileTheInputIsOpen) {
  Process process(PorticoRun(BareOptions + Arguments{SimulatedMeter}));
  for (int turn = 0; turn < 3; ++turn) {
    process.Write("*IDN?\n");
    EXPECT_EQ(process.ReadLine(), "> *IDN?");
    EXPECT_EQ(process.ReadLine(), Identity);
  }
  process.Write("REM done\n");
  EXPECT_EQ(process.ReadLine(), "# REM done");
  EXPECT_EQ(process.Wait().status, 0);
}

TEST(Interactive, LineIsNotSentBeforeItsEnd) {
  const ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{server.ResourceName()}));
  process.Write("*CLS\n*R");
  server.WaitForReceived("*CLS\r\n");
  process.Write("ST\n");
  server.WaitForReceived("*RST\r\n");
  EXPECT_EQ(server.Received(), "*CLS\r\n*RST\r\n");
  EXPECT_EQ(process.Wait().status, 0);
}

TEST(Interactive, LastLineNeedsNoLineEnd) {
  EXPECT_EQ(RunPortico(BareOptions + Arguments{SimulatedMeter}, "*CLS\n*RST").out, "> *CLS\n> *RST\n");
}

TEST(Interactive, BadLineEndsTheRunBehindTheLinesBeforeIt) {
  const ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{server.ResourceName()}));
  process.Write("*CLS\n");
  process.WaitForOutput("> *CLS\n");
  process.Write("*RST\nRES 5 k\xCE\xA9\n*CLS\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "> *CLS\n> *RST\n");
  EXPECT_EQ(outcome.err, "portico-run: standard input:3:8: U+03A9 cannot be sent: the instrument's code page lacks "
                         "it\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*CLS\r\n*RST\r\n");
}

TEST(Interactive, BadLineEndsTheRunThoughTheInputIsOpen) {
  ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{server.ResourceName()}));
  server.Send({}); // waits for the connection
  process.Write("\xFF\n");
  server.WaitForNoClient();
  EXPECT_EQ(process.Wait().status, 2);
}

TEST(Interactive, FilesBehindABadLineAreNotRun) {
  const CommandFiles files;
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{SimulatedMeter, "-", files.Add("next.cmd", "*RST\n")}, "*CLS\n\xFF\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "> *CLS\n");
}

TEST(Interactive, DirectoryIsNoInput) {
  const Outcome outcome = Process({"/bin/sh", "-c", "exec \"$0\" \"$@\" < /", PORTICO_RUN, SimulatedMeter}).Wait();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "portico-run: standard input:1:1: cannot be read: Is a directory\n");
}

TEST(Interactive, ClosedInputIsTold) {
  const Outcome outcome = Process({"/bin/sh", "-c", "exec \"$0\" \"$@\" <&-", PORTICO_RUN, SimulatedMeter}).Wait();
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.err, "portico-run: standard input:1:1: cannot be read: Bad file descriptor\n");
}

TEST(Interactive, ClosedStreamsDoNotLeadToTheInstrument) {
  const ScriptedServer server({});
  const CommandFiles files;
  const std::string closed = "exec \"$0\" \"$@\" <&- >&- 2>&-";
  Process process({"/bin/sh", "-c", closed, PORTICO_RUN, server.ResourceName(), "--protocol", "Other",
                   files.Add("one.cmd", "*CLS\n")});
  EXPECT_EQ(process.Wait().status, 5);
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*CLS\r\n");
}

TEST(Interactive, InputIsLeftAloneWhenOnlyFilesAreNamed) {
  const CommandFiles files;
  EXPECT_EQ(RunPortico(BareOptions + Arguments{SimulatedMeter, files.Add("one.cmd", "*CLS\n")}, "*RST\n").out,
            "> *CLS\n");
}

} // namespace
} // namespace portico::test
