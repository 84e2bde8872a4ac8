#include "end_to_end/Programs.h"
#include "support/EnvironmentVariable.h"

namespace portico::test {
namespace {

const std::string Missing = "/no/such/driver.so: cannot open shared object file: No such file or directory";

std::string Notice(const std::string& reason) {
  return "portico-run: The driver library that PORTICO_DRIVER names could not be loaded: " + reason +
         ". Until that is put right, only simulated instruments open.\n";
}

Outcome RunWithLibrary(const char* library, const Arguments& arguments, std::string_view input = {}) {
  const EnvironmentVariable chosen("PORTICO_DRIVER", library);
  return RunPortico(arguments, input);
}

TEST(LoadedLibrary, OneThatIsMissingIsToldAndSimulatedInstrumentsOpenStill) {
  const Outcome outcome = RunWithLibrary("/no/such/driver.so", BareOptions + Arguments{SimulatedMeter}, "SYST:VERS?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, Notice(Missing));
  EXPECT_EQ(outcome.out, "> SYST:VERS?\n< 1999.0\n");
}

TEST(LoadedLibrary, OneThatIsMissingRefusesAllOtherInstrumentsWithTheReason) {
  const Outcome outcome = RunWithLibrary("/no/such/driver.so", {"GPIB0::22::INSTR"}, "*RST\n");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, Notice(Missing) +
                             "portico-run: cannot open GPIB0::22::INSTR: The driver library could not be loaded: " +
                             Missing + ".\n");
}

TEST(LoadedLibrary, OneWithoutAFunctionIsToldAsWell) {
  const std::string reason = LACKING_LIBRARY ": it lacks TVSCPI_close, TVSCPI_error_message";
  EXPECT_EQ(RunWithLibrary(LACKING_LIBRARY, {SimulatedMeter}).err, Notice(reason));
}

TEST(LoadedLibrary, WhatItLeavesBehindItsCountIsNoAnswer) {
  const Outcome outcome =
      RunWithLibrary(AWKWARD_LIBRARY, BareOptions + Arguments{"BENCH 7"}, "SECRET?\nBEHIND?\nBEHIND?\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "> SECRET?\n< secret answer\n> BEHIND?\n< 1.5\n> BEHIND?\n< 1.5\n");
}

TEST(LoadedLibrary, AnAnswerThatFillsTheBufferIsDroppedAndTold) {
  const Outcome outcome = RunWithLibrary(AWKWARD_LIBRARY, BareOptions + Arguments{"BENCH 7"}, "FULL?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "> FULL?\n");
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: an answer of 1048575 bytes is too long and was dropped\n");
}

/// The last two characters of a message go, be they a line feed and a zero byte or not.
TEST(LoadedLibrary, AWarningIsAFailureAndItsMessageLosesTwoCharacters) {
  const Outcome outcome = RunWithLibrary(AWKWARD_LIBRARY, BareOptions + Arguments{"BENCH 7"}, "WARN?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "> WARN?\n< A warnin\n");
}

TEST(LoadedLibrary, OurOwnTransportsAsALibrarySayTheSame) {
  const SimulatorProgram simulator;
  const std::string lines = "*CLS\n*IDN?\nMEAS:VOLT:DC?\nREM a remark\nFOO\nCONF:CURR\n*ESR?\n";
  const Arguments arguments = {"--option", "SCPIProtocolTerminationCharacter=LF", simulator.ResourceName()};
  const Outcome without = RunPortico(arguments, lines + "*RST\n");
  const SimulatorProgram another;
  const Outcome with =
      RunWithLibrary(PORTICO_DRIVER_LIBRARY, {arguments[0], arguments[1], another.ResourceName()}, lines + "*RST\n");
  EXPECT_EQ(with.status, 1);
  EXPECT_NE(with.out.find("> *IDN?\n< "), std::string::npos) << with.out;
  EXPECT_EQ(with.status, without.status);
  EXPECT_EQ(with.out, without.out);
  EXPECT_EQ(with.err, without.err);
}

TEST(LoadedLibrary, OurOwnTransportsAsALibraryTellWhyAnOpenFailed) {
  const Arguments arguments = {"TCPIP::127.0.0.1::1::SOCKET"};
  const Outcome with = RunWithLibrary(PORTICO_DRIVER_LIBRARY, arguments);
  EXPECT_EQ(with.status, 3);
  EXPECT_NE(with.err.find("The instrument refused the connection: 127.0.0.1, port 1; check the port"),
            std::string::npos)
      << with.err;
  EXPECT_EQ(with.err, RunPortico(arguments).err);
}

} // namespace
} // namespace portico::test
