#include "end_to_end/RunLogs.h"
#include "end_to_end/TapPrograms.h"

namespace portico::test {
namespace {

struct ProtocolCase {
  std::string Name;
  std::string TapOption;
  std::string SimulatorOption; ///< empty for the raw socket, which the simulator always is
  std::string (*ResourceName)(const std::string& port);
};

class TapTest : public testing::TestWithParam<ProtocolCase> {
protected:
  TapTest() : Simulator(SimulatorArguments()) {
    Port = PortOf(GetParam().SimulatorOption.empty() ? Simulator.Address() : Simulator.NextAddress());
  }

  static Arguments SimulatorArguments() {
    const std::string& option = GetParam().SimulatorOption;
    return option.empty() ? Arguments{} : Arguments{option, "0"};
  }
  std::string Instrument() const { return GetParam().ResourceName(Port); }
  std::string Tapped(const TapProgram& tap) const { return GetParam().ResourceName(tap.Port); }
  std::string Log(const std::string& name) const { return Folder.At(name); }

  const TemporaryFolder Folder;
  SimulatorProgram Simulator;
  std::string Port; ///< of the simulator, in this protocol
};

INSTANTIATE_TEST_SUITE_P(Protocols, TapTest,
                         testing::Values(ProtocolCase{"Raw", "--listen", "", RawName},
                                         ProtocolCase{"Vxi11", "--vxi11", "--vxi11", Vxi11Name},
                                         ProtocolCase{"Hislip", "--hislip", "--hislip", HislipName}),
                         [](const auto& protocol) { return protocol.param.Name; });

TEST_P(TapTest, KeepsTheConversationThatTheConsoleHas) {
  TapProgram tap(GetParam().TapOption, Instrument(), {"--log", Log("tap.log"), "--show"});
  const Outcome run = RunPortico(BareOptions + Arguments{"--log", Log("run.log"), Tapped(tap)},
                                 "*IDN?\n*ESE 5\n*ESE?\nMEAS:VOLT:DC?\nTRAC:POIN 30000\nTRAC:DATA?\n");
  EXPECT_EQ(run.status, 0) << run.err;
  const Outcome ended = tap.End();
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(ended.out.substr(ended.out.find('\n') + 1), run.out);

  const Outcome diff = Process({PORTICO_LOG, "diff", Log("run.log"), Log("tap.log")}).Wait();
  EXPECT_EQ(diff.status, 0) << diff.out << diff.err;
  const std::string log = BytesOf(Log("tap.log"));
  EXPECT_TRUE(IsComplete(log));
  EXPECT_EQ(CountOf(log, "SessionCloseTimeStamp"), 1);
  EXPECT_EQ(CountOf(log, "<Instruction "), 6);
  EXPECT_EQ(CountOf(log, "<Response "), 4);
}

TEST_P(TapTest, EachClientIsASession) {
  TapProgram tap(GetParam().TapOption, Instrument(), {"--log", Log("tap.log")});
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(RunPortico(BareOptions + Arguments{Tapped(tap)}, "*OPC?\n").out, "> *OPC?\n< 1\n");
  }
  EXPECT_EQ(tap.End().status, 0);
  const std::string log = BytesOf(Log("tap.log"));
  EXPECT_EQ(CountOf(log, "<Session "), 3);
  EXPECT_EQ(CountOf(log, "SessionCloseTimeStamp"), 3);
  EXPECT_EQ(Told(log), "> *OPC?\n< 1\n> *OPC?\n< 1\n> *OPC?\n< 1\n");
}

TEST_P(TapTest, AnotherClientIsRefusedInWordsOfItsProtocol) {
  TapProgram tap(GetParam().TapOption, Instrument());
  Process first(PorticoRun(BareOptions + Arguments{Tapped(tap)}));
  first.Write("*OPC?\n");
  first.WaitForOutput("< 1\n");
  const Outcome second = RunPortico(BareOptions + Arguments{"--timeout", "2000", Tapped(tap)}, "*OPC?\n");
  EXPECT_NE(second.status, 0);
  EXPECT_EQ(second.out.find("< 1"), std::string::npos);
  first.Write("*ESE?\n");
  first.WaitForOutput("< 0\n");
  EXPECT_EQ(first.Wait().status, 0);
  EXPECT_EQ(RunPortico(BareOptions + Arguments{Tapped(tap)}, "*OPC?\n").out, "> *OPC?\n< 1\n");
}

TEST_P(TapTest, InstrumentThatIsNotThereIsToldAndTheNextClientFindsIt) {
  const std::string port = Port;
  TapProgram tap(GetParam().TapOption, GetParam().ResourceName("1"));
  EXPECT_NE(RunPortico(BareOptions + Arguments{"--timeout", "2000", Tapped(tap)}, "*OPC?\n").status, 0);
  const Outcome ended = tap.End();
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err.substr(0, ended.err.find('\n')),
            "portico-tap: no connection to the instrument: 127.0.0.1, port 1, refused it");
}

TEST_P(TapTest, FullDiskDisturbsNoClientAndLeavesAReadableLog) {
  const std::string limited = "ulimit -f 4; exec \"$@\"";
  const Arguments command = {"/bin/bash",          "-c", limited, "bash",         PORTICO_TAP,
                             GetParam().TapOption, "0",  "--log", Log("tap.log"), Instrument()};
  Process tap(command);
  tap.WaitForOutput("listening on 127.0.0.1:");
  std::string port = tap.ReadLine();
  port = port.substr(0, port.find(' '));
  const Outcome run =
      RunPortico(BareOptions + Arguments{GetParam().ResourceName(port)}, "*OPC?\nTRAC:POIN 5000\nTRAC:DATA?\n*ESE?\n");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out.substr(run.out.size() - 10), "*ESE?\n< 0\n");
  tap.Signal(SIGINT);
  const Outcome ended = tap.Wait();
  EXPECT_EQ(ended.status, 5);
  EXPECT_EQ(CountLines(ended.err), 2) << ended.err;
  EXPECT_NE(ended.err.find("portico-tap: the log cannot be written: "), std::string::npos);
  EXPECT_NE(ended.err.find("portico-tap: the log is incomplete\n"), std::string::npos);
  const std::string log = BytesOf(Log("tap.log"));
  EXPECT_TRUE(IsComplete(log));
  EXPECT_EQ(Told(log).substr(0, 12), "> *OPC?\n< 1\n");
}

class TapUsageTest : public testing::Test {
protected:
  static void ExpectRefusal(const Arguments& arguments, const std::string& complaint) {
    const Outcome refused = Process(Arguments{PORTICO_TAP} + arguments).Wait();
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "portico-tap: " + complaint + "\n");
  }
};

TEST_F(TapUsageTest, SaysWhatWasWrongAndWhatWouldBeRight) {
  ExpectRefusal({"--listen", "0", "nonsense"}, "'nonsense' is no instrument name: \"nonsense\" is no interface; write "
                                               "TCPIP::HOST::PORT::SOCKET or SIM::DEVICE::INSTR");
  const std::string ports = "use one of --listen, --vxi11 and --hislip, with the port to listen on";
  ExpectRefusal({RawName("5025")}, ports);
  ExpectRefusal({"--listen", "0", "--vxi11", "0", RawName("5025")}, ports);
  ExpectRefusal({"--listen", "0", "--log", "/dev/full", RawName("5025")},
                "cannot log to /dev/full: The file, /dev/full, is not a valid data store.");
  ExpectRefusal({"--listen", "0", "--bind", "nowhere", RawName("5025")},
                "'nowhere' is not an IPv4 or IPv6 address such as 127.0.0.1 or ::1");
}

TEST_F(TapUsageTest, TellsItsVersionAndItsOptions) {
  const Outcome help = Process({PORTICO_TAP, "--help"}).Wait();
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("--listen PORT"), std::string::npos);
  EXPECT_EQ(Process({PORTICO_TAP, "--version"}).Wait().out.substr(0, 12), "portico-tap ");
}

} // namespace
} // namespace portico::test
