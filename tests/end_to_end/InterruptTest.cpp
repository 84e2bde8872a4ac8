#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"
#include "support/doubles/SerialInstrument.h"

#include <csignal>

namespace portico::test {
namespace {

Arguments Paced(const std::string& milliseconds) {
  return {"--option", "SCPIProtocolIntervalPacing=On",    "--option", "SCPIProtocolPacingInterval=" + milliseconds,
          "--option", "SCPIProtocolAutoErrorChecking=Off"};
}

TEST(Interrupt, EndsTheWaitForInputAndClosesTheConnection) {
  ScriptedServer server({});
  Process process(PorticoRun({server.ResourceName()}));
  server.Send({}); // waits for the connection
  process.Signal(SIGINT);
  server.WaitForNoClient();
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: interrupted\n"); // no line has been there
}

TEST(Interrupt, IsToldWithTheLastLineThatWasRun) {
  const CommandFiles files;
  const std::string first = files.Add("first.cmd", "*CLS\nSLOW?\n*RST\n");
  const std::string second = files.Add("second.cmd", "*CLS\n");
  ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{"--timeout", "60000", server.ResourceName(), first, second}));
  server.WaitForReceived("SLOW?\r\n");
  process.Signal(SIGINT);
  server.Send("answer\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "portico-run: " + first + ":2: interrupted\n");
}

TEST(Interrupt, RequestToTerminateCountsAlike) {
  ScriptedServer server({});
  Process process(PorticoRun({server.ResourceName()}));
  server.Send({}); // waits for the connection
  process.Signal(SIGTERM);
  server.WaitForNoClient();
  EXPECT_EQ(process.Wait().status, 130);
}

TEST(Interrupt, LetsTheLineComeToItsEnd) {
  ScriptedServer server({});
  Process process(PorticoRun(BareOptions + Arguments{"--timeout", "60000", server.ResourceName()}));
  process.Write("SLOW?\n*RST\n");
  server.WaitForReceived("SLOW?\r\n");
  process.Signal(SIGINT);
  server.Send("answer\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, "> SLOW?\n< answer\n");
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: interrupted\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "SLOW?\r\n");
}

TEST(Interrupt, OnceInAPacingWaitEndsTheRunAtTheLineBoundary) {
  Process process(PorticoRun(Paced("1500") + Arguments{SimulatedMeter}));
  process.Write("*CLS\n*RST\n*IDN?\n");
  process.WaitForOutput("> *CLS\n* *OPC?\n< 1\n");
  process.Signal(SIGINT);
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, "* *OPC?\n< 1\n> *CLS\n* *OPC?\n< 1\n> *RST\n");
}

TEST(Interrupt, AgainEndsThePacingWaitAsWell) {
  ScriptedServer server({{"*OPC?", Reaction::Answer("1\n")}});
  Process process(PorticoRun(Paced("65535") + Arguments{server.ResourceName()}));
  process.Write("*CLS\n*RST\n");
  process.WaitForOutput("> *CLS\n* *OPC?\n< 1\n");
  const Outcome outcome = process.SignalUntilEnd(SIGINT);
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.out, "* *OPC?\n< 1\n> *CLS\n* *OPC?\n< 1\n");
  EXPECT_EQ(outcome.err, "portico-run: standard input:2: interrupted\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*OPC?\r\n*CLS\r\n*OPC?\r\n");
}

TEST(Interrupt, AgainEndsAReadThatIsUnderWay) {
  ScriptedServer server({});
  Process process(PorticoRun(Arguments{"--timeout", "600000", server.ResourceName()}));
  process.Write("*CLS\n*RST\n");
  server.WaitForReceived("*OPC?\r\n");
  const Outcome outcome = process.SignalUntilEnd(SIGINT);
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: interrupted\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*OPC?\r\n") << "nothing is sent any more";
}

TEST(Interrupt, AgainEndsAReadOnASerialLineAndASimulatedInstrument) {
  const SerialInstrument line(InstrumentScript{});
  for (const std::string& instrument : {line.ResourceName(), SimulatedMeter}) {
    Process process(PorticoRun(BareOptions + Arguments{"--timeout", "600000", instrument}));
    process.Write("REM a wait begins\nSLOW?\n");
    process.WaitForOutput("> SLOW?\n");
    const Outcome outcome = process.SignalUntilEnd(SIGTERM);
    EXPECT_EQ(outcome.status, 130) << instrument;
    EXPECT_EQ(outcome.err, "portico-run: standard input:2: interrupted\n") << instrument;
  }
}

TEST(Interrupt, OutranksAReportedErrorAndADriverFailure) {
  ScriptedServer server({{":SYST:ERR?", Reaction::Answer("-113,\"Undefined header\"\n")}});
  Process process(PorticoRun({"--timeout", "50", "--option", "SCPIProtocolOPCPacing=Off", server.ResourceName()}));
  process.Write("MEAS?\n");
  process.WaitForOutput("< -113,\"Undefined header\"\n");
  process.Signal(SIGINT);
  EXPECT_EQ(process.Wait().status, 130);
}

} // namespace
} // namespace portico::test
