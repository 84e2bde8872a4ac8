#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

const InstrumentScript Meter = {{"*OPC?", Reaction::Answer("1\n")},
                                {"MEAS?", Reaction::Answer("+1.5\n")},
                                {":SYST:ERR?", Reaction::Answer("0,\"No error\"\n")}};

TEST(Wire, WithAllOptionsOnALineIsFramedByThePacingQueryAndTheErrorQuery) {
  const ScriptedServer server(Meter);
  const Outcome outcome = RunPortico(
      {server.ResourceName(), "--option", "SCPIProtocolIntervalPacing=On", "--option", "SCPIProtocolPacingInterval=1"},
      "MEAS?\nCONF:VOLT 10\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(server.Received(), "*OPC?\r\nMEAS?\r\n:SYST:ERR?\r\n"
                               "*OPC?\r\nCONF:VOLT 10\r\n:SYST:ERR?\r\n");
  EXPECT_EQ(outcome.out, "* *OPC?\n< 1\n> MEAS?\n< +1.5\n* :SYST:ERR?\n< 0,\"No error\"\n"
                         "* *OPC?\n< 1\n> CONF:VOLT 10\n* :SYST:ERR?\n< 0,\"No error\"\n");
  EXPECT_EQ(server.Connections(), 1U);
  server.WaitForNoClient();
}

TEST(Wire, EachLinkWaitsForTheOneBefore) {
  ScriptedServer server({});
  Process process(PorticoRun({server.ResourceName(), "--timeout", "60000"}));
  process.Write("MEAS?\n");
  server.WaitForReceived("*OPC?\r\n");
  EXPECT_EQ(server.Received(), "*OPC?\r\n");
  server.Send("1\n");
  server.WaitForReceived("MEAS?\r\n");
  EXPECT_EQ(server.Received(), "*OPC?\r\nMEAS?\r\n");
  server.Send("+1.5\r\n");
  server.WaitForReceived(":SYST:ERR?\r\n");
  server.Send("0,\"No error\"\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "* *OPC?\n< 1\n> MEAS?\n< +1.5\n* :SYST:ERR?\n< 0,\"No error\"\n");
}

TEST(Wire, OtherProtocolSendsTheLineOnly) {
  const ScriptedServer server(Meter);
  const Outcome outcome = RunPortico({"--protocol", "Other", server.ResourceName()}, "MEAS?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> MEAS?\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "MEAS?\r\n");
}

TEST(Wire, OtherProtocolReadsAfterAQueryOnDemand) {
  const ScriptedServer server(Meter);
  const Outcome outcome =
      RunPortico({"--protocol", "Other", "--read-after-query", server.ResourceName()}, "MEAS?\nDISP 'MEAS?'\nMEAS?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, "> MEAS?\n< +1.5\n> DISP 'MEAS?'\n> MEAS?\n< +1.5\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "MEAS?\r\nDISP 'MEAS?'\r\nMEAS?\r\n");
}

TEST(Wire, BlanksInFrontGoBlanksBehindStay) {
  const ScriptedServer server({});
  EXPECT_EQ(RunPortico(BareOptions + Arguments{server.ResourceName()}, "   *CLS  \n\n  REM no bytes\n").status, 0);
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "*CLS  \r\n");
}

TEST(Wire, TextGoesOutInTheInstrumentsCodePage) {
  const ScriptedServer server({{"UNIT?", Reaction::Answer("\xB5V \x80\n")}});
  const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "DISP \"5 \xC2\xB5V\"\nUNIT?\n");
  EXPECT_EQ(outcome.out, "> DISP \"5 \xC2\xB5V\"\n> UNIT?\n< \xC2\xB5V \xE2\x82\xAC\n");
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "DISP \"5 \xB5V\"\r\nUNIT?\r\n");
}

TEST(Wire, QuestionMarkInQuotesMakesNoQuery) {
  const ScriptedServer server({});
  EXPECT_EQ(RunPortico(BareOptions + Arguments{server.ResourceName()}, "DISP \"READY?\"\n").status, 0);
  server.WaitForNoClient();
  EXPECT_EQ(server.Received(), "DISP \"READY?\"\r\n");
}

TEST(Wire, ErrorQueryIsTheOneThatTheOptionSays) {
  const ScriptedServer server({{"STAT:QUE?", Reaction::Answer("-200,\"Execution error\"\n")}});
  const Outcome outcome = RunPortico({server.ResourceName(), "--option", "SCPIProtocolErrorCheckingCommand=STAT:QUE?",
                                      "--option", "SCPIProtocolOPCPacing=Off"},
                                     "*CLS\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "> *CLS\n* STAT:QUE?\n< -200,\"Execution error\"\n");
}

TEST(Wire, TerminationSaysWhereAnAnswerEnds) {
  const ScriptedServer server({{"Q?", Reaction::Answer("one\ntwo\r")}});
  const Outcome outcome = RunPortico(
      BareOptions + Arguments{server.ResourceName(), "--option", "SCPIProtocolTerminationCharacter=CR"}, "Q?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> Q?\n< one\n< two\n");
}

TEST(Wire, NoConnectionIsMadeWhenAnyFileIsBad) {
  const ScriptedServer server(Meter);
  const CommandFiles files;
  const std::string good = files.Add("good.cmd", "*CLS\n");
  const std::string bad = files.Add("bad.cmd", "*CLS\nMEAS\xFF\n");
  const Outcome outcome = RunPortico({server.ResourceName(), good, "-", bad}, "*RST\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: " + bad + ":2:5: not UTF-8; save the file as UTF-8\n");
  EXPECT_EQ(server.Connections(), 0U);
}

TEST(Wire, NoConnectionIsMadeWhenAFileIsMissing) {
  const ScriptedServer server(Meter);
  const CommandFiles files;
  const std::string good = files.Add("good.cmd", "*CLS\n");
  EXPECT_EQ(RunPortico({server.ResourceName(), good, files.Folder() + "/missing.cmd"}).status, 2);
  EXPECT_EQ(server.Connections(), 0U);
}

} // namespace
} // namespace portico::test
