#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

#include <csignal>
#include <filesystem>

namespace portico::test {
namespace {

namespace fs = std::filesystem;

class GetTest : public testing::Test {
protected:
  Outcome Get(const std::string& instrument, const std::string& query, const Arguments& more = {}) const {
    return RunPortico(Arguments{instrument, "--get", query, File} + more);
  }
  bool IsLeft() const { return !fs::is_empty(Folder.Path()); }

  const TemporaryFolder Folder;
  const std::string File = Folder.At("answer.bin");
};

std::string BlockBytes(std::size_t length) {
  std::string bytes(length, '\0');
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<char>(i % 251);
  return bytes;
}

TEST_F(GetTest, AnAnswerThatNoReadCouldHoldGoesToAFile) {
  const Outcome outcome = Get("SIM::scope::INSTR", "SIM:BLOC? 30000000");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "* SIM:BLOC? 30000000\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_TRUE(Folder.Read("answer.bin") == BlockBytes(30'000'000));
}

TEST_F(GetTest, SoItDoesOverTheNetwork) {
  SimulatorProgram simulator({"--vxi11", "0", "--hislip", "0"});
  const auto port = [&simulator] {
    const std::string address = simulator.NextAddress();
    const std::size_t begin = address.rfind(':') + 1;
    return address.substr(begin, address.find(' ') - begin); // the protocol stands behind it
  };
  const std::string hislip = "TCPIP::127.0.0.1::hislip0," + port() + "::INSTR";
  const std::string vxi11 = "TCPIP::127.0.0.1," + port() + "::inst0::INSTR";
  for (const std::string& name : {simulator.ResourceName(), vxi11, hislip}) {
    const Outcome outcome = Get(name, "SIM:BLOC? 3000000");
    EXPECT_EQ(outcome.status, 0) << name << ": " << outcome.err;
    EXPECT_TRUE(Folder.Read("answer.bin") == BlockBytes(3'000'000)) << name;
  }
}

TEST_F(GetTest, TheQueryStandsInTheLogAndAnAnswerThatAReadCouldHold) {
  const std::string log = Folder.At("run.log");
  EXPECT_EQ(Get(SimulatedMeter, "*IDN?", {"--log", log}).status, 0);
  EXPECT_EQ(Get(SimulatedMeter, "SIM:BLOC? 2000000", {"--log", log}).status, 0);
  Process show({PORTICO_LOG, "show", log});
  const std::string shown = show.Wait().out;
  EXPECT_NE(shown.find("* *IDN?\n"), std::string::npos) << shown;
  EXPECT_NE(shown.find("< TOLVANE INSTRUMENTS,"), std::string::npos) << shown;
  EXPECT_NE(shown.find("* SIM:BLOC? 2000000\n"), std::string::npos) << shown;
  EXPECT_LT(shown.size(), 2000U);
}

TEST_F(GetTest, CommandFilesComeFirst) {
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{"SIM::scope::INSTR", "-", "--get", "WAV:DATA?", File, "--quiet"},
                 "WAV:POIN 1000\nSING\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(Folder.Read("answer.bin").size(), 1000U);
}

TEST_F(GetTest, ATornAnswerLeavesNoFile) {
  const ScriptedServer server(
      {{"TORN?", Reaction::Part("#41000abc")}, {"DIES?", Reaction::Close("#41000abc")}, {"Q?", Reaction::Silence()}});
  for (const char* query : {"TORN?", "DIES?", "Q?"}) {
    const Outcome outcome = Get(server.ResourceName(), query, {"--timeout", "300"});
    EXPECT_EQ(outcome.status, 4) << query;
    EXPECT_EQ(CountLines(outcome.err), 1) << outcome.err;
    EXPECT_FALSE(IsLeft()) << query;
  }
}

TEST_F(GetTest, AFullDiskIsOneSentence) {
  const Outcome outcome = RunPortico({SimulatedMeter, "--get", "SIM:BLOC? 3000000", "/dev/full"});
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "portico-run: /dev/full cannot be written: No space left on device\n");
}

TEST_F(GetTest, AFileThatMayNotGrowLeavesNothing) {
  Process program({"/bin/sh", "-c", "ulimit -f 200; exec \"$@\"", "sh", PORTICO_RUN, SimulatedMeter, "--get",
                   "SIM:BLOC? 3000000", File});
  const Outcome outcome = program.Wait();
  EXPECT_EQ(outcome.status, 5);
  EXPECT_EQ(outcome.err, "portico-run: " + File + " cannot be written: File too large\n");
  EXPECT_FALSE(IsLeft());
}

TEST_F(GetTest, CtrlCEndsItAndLeavesNoFile) {
  const SimulatorProgram simulator;
  Process program(PorticoRun({simulator.ResourceName(), "--get", "SIM:ENDL?", File}));
  program.WaitForOutput("SIM:ENDL?");
  const Outcome outcome = program.SignalUntilEnd(SIGINT);
  EXPECT_EQ(outcome.status, 130);
  EXPECT_FALSE(IsLeft());
}

TEST_F(GetTest, WithADriverLibraryItIsRefusedInWords) {
  Process program({"/usr/bin/env", "PORTICO_DRIVER=" PORTICO_DRIVER_LIBRARY, PORTICO_RUN, "tcpip::x::instr", "--get",
                   "*IDN?", File});
  EXPECT_EQ(program.Wait().status, 3) << "it does not even open";
  const SimulatorProgram simulator;
  Process refused({"/usr/bin/env", "PORTICO_DRIVER=" PORTICO_DRIVER_LIBRARY, PORTICO_RUN, simulator.ResourceName(),
                   "--get", "*IDN?", File});
  const Outcome outcome = refused.Wait();
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, "portico-run: *IDN?: This cannot be done: the driver library has no function for it.\n");
  EXPECT_EQ(outcome.out, "");
  EXPECT_FALSE(IsLeft());
}

} // namespace
} // namespace portico::test
