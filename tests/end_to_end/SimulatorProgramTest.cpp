#include "end_to_end/Programs.h"

#include <csignal>

namespace portico::test {
namespace {

TEST(SimulatorProgram, FirstStepsOverTcpGiveTheTranscriptOfTheBuiltInInstrument) {
  const SimulatorProgram simulator;
  const Outcome outcome = RunPortico({simulator.ResourceName(), FirstSteps});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(outcome.out, "");
  EXPECT_EQ(outcome.out, RunPortico({SimulatedMeter, FirstSteps}).out);
}

TEST(SimulatorProgram, ListensOnTheLoopbackUnlessTold) {
  const SimulatorProgram simulator;
  EXPECT_EQ(simulator.Address().substr(0, 10), "127.0.0.1:");
}

TEST(SimulatorProgram, ServesClientsSideBySide) {
  const SimulatorProgram simulator;
  Process one(PorticoRun(BareOptions + Arguments{simulator.ResourceName()}));
  Process two(PorticoRun(BareOptions + Arguments{simulator.ResourceName()}));
  one.Write("SENS:VOLT:DC:NPLC 10\nSENS:VOLT:DC:NPLC?\n");
  one.WaitForOutput("< +1.00000000E+01\n");
  two.Write("SENS:VOLT:DC:NPLC?\n");
  two.WaitForOutput("< +1.00000000E+01\n"); // they share the instrument
  one.Write("*OPC?\n");
  one.WaitForOutput("< 1\n");
  EXPECT_EQ(one.Wait().status, 0);
  EXPECT_EQ(two.Wait().status, 0);
}

TEST(SimulatorProgram, ServesOneInstrumentForAsLongAsItRuns) {
  const SimulatorProgram simulator({"--device", "psu"});
  RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "VOLT 5\nOUTP ON\n*OPC?\n");
  const Outcome outcome = RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "VOLT?\nOUTP?\n");
  EXPECT_EQ(outcome.out, "> VOLT?\n< +5.00000000E+00\n> OUTP?\n< 1\n");
}

TEST(SimulatorProgram, ServesTheDeviceThatIsAskedFor) {
  const SimulatorProgram simulator({"--device", "psu"});
  const Outcome outcome = RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "*IDN?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("PSU"), std::string::npos) << outcome.out;
}

TEST(SimulatorProgram, ServesTheSameInstrumentOnASerialLine) {
  SimulatorProgram simulator({"--serial"});
  const std::string line = simulator.NextAddress();
  ASSERT_EQ(line.find("/dev/pts/"), 0U) << line;
  ASSERT_TRUE(line.ends_with(" serial")) << line;
  const std::string name = "ASRL" + line.substr(0, line.find(' ')) + "::INSTR";
  RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "*ESE 5\n*OPC?\n");
  for (int i = 0; i < 2; ++i) { // the line is there again after its client has gone
    const Outcome outcome = RunPortico(BareOptions + Arguments{name}, "*ESE?\n");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "> *ESE?\n< 5\n");
  }
}

TEST(SimulatorProgram, ServesTheSameInstrumentInVxi11) {
  SimulatorProgram simulator({"--vxi11", "0"});
  const std::string line = simulator.NextAddress();
  ASSERT_EQ(line.find("127.0.0.1:"), 0U) << line;
  ASSERT_TRUE(line.ends_with(" vxi11")) << line;
  const std::string name = "TCPIP::127.0.0.1," + line.substr(10, line.find(' ') - 10) + "::INSTR";
  RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "*ESE 5\n*OPC?\n");
  const Outcome outcome = RunPortico(BareOptions + Arguments{name}, "*ESE?\nTRAC:POIN 100000\nTRAC:DATA?\nSYST:ERR?\n");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out.find("> *ESE?\n< 5\n> TRAC:POIN 100000\n> TRAC:DATA?\n"), 0U) << outcome.out.substr(0, 80);
  EXPECT_GT(outcome.out.size(), 100000U);
  EXPECT_TRUE(outcome.out.ends_with("> SYST:ERR?\n< 0,\"No error\"\n"));
}

TEST(SimulatorProgram, Vxi11AnswerThatComesTooLateIsNotTakenForTheNextOne) {
  SimulatorProgram simulator({"--vxi11", "0"});
  const std::string line = simulator.NextAddress();
  const std::string name = "TCPIP::127.0.0.1," + line.substr(10, line.find(' ') - 10) + "::INSTR";
  const Outcome outcome = RunPortico(BareOptions + Arguments{"--timeout", "250", name},
                                     "SIM:NEXT LATE;LAT 0.5\nSIM:ECHO? 1\nSIM:ECHO? 2\nSIM:NEXT NUMB\nSIM:ECHO? 3\n"
                                     "SIM:ECHO? 4\nSIM:NEXT STR\nSIM:ECHO? 5\nSIM:ECHO? 6\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_NE(outcome.out.find("> SIM:ECHO? 1\n< Timeout"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("> SIM:ECHO? 2\n< 2\n"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("> SIM:ECHO? 3\n< Timeout"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("> SIM:ECHO? 4\n< 4\n"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("> SIM:ECHO? 5\n< The instrument broke the protocol"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("> SIM:ECHO? 6\n< 6\n"), std::string::npos) << outcome.out;
}

TEST(SimulatorProgram, BlockWithLineFeedsIsReadWhole) {
  const SimulatorProgram simulator;
  // The waveform holds line feeds; were it cut at one, the identity would not be the next answer.
  const Outcome outcome =
      RunPortico(BareOptions + Arguments{simulator.ResourceName()}, "TRAC:POIN 500\nTRAC:DATA?\n*IDN?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_GT(CountLines(outcome.out), 5);
  EXPECT_TRUE(outcome.out.ends_with("> *IDN?\n< TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n"));
}

TEST(SimulatorProgram, AnswerThatComesTooLateIsNotTakenForTheNextOne) {
  const SimulatorProgram simulator;
  // The late answer is on its way while the next query waits for its own, which takes half a second.
  const Outcome outcome = RunPortico(BareOptions + Arguments{"--timeout", "1000", simulator.ResourceName()},
                                     "SIM:DEL 1.2\n*IDN?\nSIM:DEL 0.5\n*OPC?\n*IDN?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_NE(outcome.out.find("> *IDN?\n< Timeout expired before the answer was complete"), std::string::npos)
      << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("> *OPC?\n< 1\n> *IDN?\n< TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n"))
      << outcome.out;
}

TEST(SimulatorProgram, MisbehavesFromTheStartIfAsked) {
  const SimulatorProgram simulator({"--fault", "NEXT DROP", "--fault", "LATeness 0.5"});
  const Outcome outcome = RunPortico(BareOptions + Arguments{"--timeout", "250", simulator.ResourceName()},
                                     "*IDN?\n*ESE?\nSIM:NEXT LATE\n*IDN?\n*ESE?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(CountLines(outcome.out), 9) << outcome.out;
  EXPECT_NE(outcome.out.find("connection"), std::string::npos) << outcome.out;
  EXPECT_NE(outcome.out.find("> SIM:NEXT LATE\n> *IDN?\n< Timeout"), std::string::npos) << outcome.out;
  EXPECT_TRUE(outcome.out.ends_with("> *ESE?\n< 0\n")) << outcome.out;
}

TEST(SimulatorProgram, EndsWellWhenItIsToldTo) {
  for (const int signal : {SIGINT, SIGTERM}) {
    SimulatorProgram simulator;
    simulator.Program().Signal(signal);
    const Outcome outcome = simulator.Program().Wait();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
  }
}

TEST(SimulatorProgram, PortInUseIsOneLineAndStatus2) {
  const SimulatorProgram simulator;
  const std::string port = simulator.Address().substr(simulator.Address().rfind(':') + 1);
  for (const std::string option : {"--port", "--hislip", "--vxi11"}) {
    Arguments command = {PORTICO_SIM, option, port};
    if (option != "--port") command.insert(command.end(), {"--port", "0"});
    const Outcome outcome = Process(command).Wait();
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "portico-sim: cannot listen on 127.0.0.1:" + port +
                               ": Address already in use; give another " + option +
                               ", 0 for a free one, or another --bind\n");
  }
}

TEST(SimulatorProgram, BadOptionIsOneLineAndStatus2) {
  for (const Arguments& bad : {Arguments{"--port", "70000"}, Arguments{"--port", "x"}, Arguments{"--device", "toaster"},
                               Arguments{"--bind", "nowhere.invalid"}, Arguments{"--fault", "WHIM"},
                               Arguments{"--fault", "NEXT WHIM"}, Arguments{"--portmap"}, Arguments{"--bogus"}}) {
    const Outcome outcome = Process(Arguments{PORTICO_SIM} + bad).Wait();
    EXPECT_EQ(outcome.status, 2) << bad.front();
    EXPECT_EQ(outcome.out, "") << bad.front();
    EXPECT_EQ(outcome.err.find("portico-sim: "), 0U) << outcome.err;
    EXPECT_EQ(CountLines(outcome.err), 1) << outcome.err;
  }
}

} // namespace
} // namespace portico::test
