#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

const std::string UndefinedHeader = "the instrument reports -113,\"Undefined header\"\n";
const Reaction NoError = Reaction::Answer("0,\"No error\"\n");

TEST(ExitStatus, AllWentWell) {
  const Outcome outcome = RunPortico({SimulatedMeter}, "*RST\n*IDN?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
}

TEST(ExitStatus, NothingToDoIsWell) {
  const Outcome outcome = RunPortico({SimulatedMeter});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
}

TEST(ExitStatus, ReportedErrorIs1AndTheRunGoesOn) {
  const Outcome outcome = RunPortico({SimulatedMeter}, "FOO\n*CLS\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: " + UndefinedHeader);
  EXPECT_TRUE(outcome.out.ends_with("> *CLS\n* :SYST:ERR?\n< 0,\"No error\"\n")) << outcome.out;
}

TEST(ExitStatus, ErrorThatOnlyAQueryOfTheUserBringsIsNone) {
  const Outcome outcome = RunPortico(BareOptions + Arguments{SimulatedMeter}, "FOO\n:SYST:ERR?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> FOO\n> :SYST:ERR?\n< -113,\"Undefined header\"\n");
}

TEST(ExitStatus, InstrumentThatRefusesIs3) {
  ScriptedServer server({});
  server.StopListening();
  const Outcome outcome = RunPortico({server.ResourceName()}, "*CLS\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "portico-run: cannot open " + server.ResourceName() +
                             ": The instrument refused the connection: 127.0.0.1, port " +
                             std::to_string(server.Port()) + "; check the port, and that the instrument serves it.\n");
}

TEST(ExitStatus, TimeoutIs4) {
  const ScriptedServer server({});
  EXPECT_EQ(RunPortico(BareOptions + Arguments{"--timeout", "50", server.ResourceName()}, "MEAS?\n").status, 4);
}

TEST(ExitStatus, OutputThatCannotBeWrittenIs5) {
  Process process({"/bin/sh", "-c", "exec \"$0\" \"$@\" > /dev/full", PORTICO_RUN, SimulatedMeter});
  process.Write("*CLS\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "portico-run: standard output cannot be written\n");
}

TEST(ExitStatus, BadLineOutranksADriverFailureAndAReportedError) {
  const ScriptedServer server({{":SYST:ERR?", Reaction::Answer("-113,\"Undefined header\"\n")}});
  const Outcome outcome = RunPortico({"--timeout", "50", server.ResourceName()}, "FOO\n\xFF\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST(ExitStatus, DriverFailureOutranksAReportedError) {
  const ScriptedServer server({{":SYST:ERR?", Reaction::Answer("-113,\"Undefined header\"\n")}});
  const Outcome outcome =
      RunPortico({"--timeout", "50", "--option", "SCPIProtocolOPCPacing=Off", server.ResourceName()}, "MEAS?\nFOO\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_NE(outcome.err.find("standard input:2: " + UndefinedHeader), std::string::npos) << outcome.err;
}

TEST(StopOnError, EndsAtTheFirstReportedError) {
  const Outcome outcome = RunPortico({"--stop-on-error", SimulatedMeter}, "*CLS\nFOO\n*RST\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "portico-run: standard input:2: " + UndefinedHeader);
  EXPECT_TRUE(outcome.out.ends_with("> FOO\n* :SYST:ERR?\n< -113,\"Undefined header\"\n")) << outcome.out;
}

TEST(StopOnError, EndsAtTheFirstDriverFailure) {
  const ScriptedServer server({{"*OPC?", Reaction::Answer("1\n")}, {":SYST:ERR?", NoError}});
  const Outcome outcome =
      RunPortico({"--stop-on-error", "--timeout", "50", server.ResourceName()}, "*CLS\nMEAS?\n*RST\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out.find("*RST"), std::string::npos) << outcome.out;
  server.WaitForNoClient();
  EXPECT_TRUE(server.Received().ends_with("MEAS?\r\n:SYST:ERR?\r\n")) << server.Received();
}

TEST(StopOnError, SkipsTheFilesThatFollow) {
  const CommandFiles files;
  const std::string bad = files.Add("bad.cmd", "FOO\n");
  const std::string next = files.Add("next.cmd", "*RST\n");
  const Outcome outcome = RunPortico({"--stop-on-error", SimulatedMeter, bad, next});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out.find("*RST"), std::string::npos) << outcome.out;
}

TEST(StopOnError, WithoutAnErrorEverythingRuns) {
  EXPECT_EQ(RunPortico({"--stop-on-error", SimulatedMeter}, "*CLS\n*RST\n").status, 0);
}

TEST(ExitStatus, QuietTellsWhatWentWrong) {
  const Outcome outcome = RunPortico({"--quiet", SimulatedMeter}, "FOO\n");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: " + UndefinedHeader);
}

} // namespace
} // namespace portico::test
