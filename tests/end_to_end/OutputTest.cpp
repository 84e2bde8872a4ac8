// What is on standard output while portico-run waits.

#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

#include <csignal>

namespace portico::test {
namespace {

TEST(Output, InstructionIsOutBeforeItsAnswerIsAwaited) {
  ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  Process process(PorticoRun(BareOptions + Arguments{"--timeout", "60000", server.ResourceName()}));
  process.Write("Q?\nSLOW?\n");
  process.WaitForOutput("> Q?\n< 1\n> SLOW?\n");
  server.Send("answer\n");
  process.WaitForOutput("< answer\n"); // and before the next line is awaited
  EXPECT_EQ(process.Wait().status, 0);
}

TEST(Output, IsOutBeforeAnIntervalIsAwaited) {
  const ScriptedServer server({});
  Process process(PorticoRun({"--option", "SCPIProtocolIntervalPacing=On", "--option",
                              "SCPIProtocolPacingInterval=60000", "--option", "SCPIProtocolOPCPacing=Off", "--option",
                              "SCPIProtocolAutoErrorChecking=Off", server.ResourceName()}));
  process.Write("*CLS\n*RST\n");
  process.WaitForOutput("> *CLS\n");
  EXPECT_EQ(process.SignalUntilEnd(SIGINT).out, "> *CLS\n");
}

TEST(Output, AKillAtAWaitLosesNothing) {
  const ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  Process process(PorticoRun(BareOptions + Arguments{"--timeout", "60000", server.ResourceName()}));
  process.Write("*CLS\nREM and\nQ?\nSLOW?\n");
  process.WaitForOutput("> SLOW?\n");
  process.Signal(SIGKILL);
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, -SIGKILL);
  EXPECT_EQ(outcome.out, "> *CLS\n# REM and\n> Q?\n< 1\n> SLOW?\n");
}

} // namespace
} // namespace portico::test
