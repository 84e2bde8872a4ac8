#include "end_to_end/RunLogs.h"
#include "end_to_end/TapPrograms.h"

namespace portico::test {
namespace {

/// A client that speaks as to a raw socket, and an instrument that is reached in another way.
class TapBridgeTest : public testing::TestWithParam<std::string> {
protected:
  TapBridgeTest() : Simulator({"--hislip", "0", "--vxi11", "0", "--serial"}) {
    Hislip = PortOf(Simulator.NextAddress());
    Vxi11 = PortOf(Simulator.NextAddress());
    Serial = Simulator.NextAddress();
    Serial = Serial.substr(0, Serial.find(' '));
  }

  std::string Instrument() const {
    if (GetParam() == "Hislip") return HislipName(Hislip);
    if (GetParam() == "Vxi11") return Vxi11Name(Vxi11);
    return GetParam() == "Serial" ? "ASRL" + Serial + "::INSTR" : SimulatedMeter;
  }

  const TemporaryFolder Folder;
  SimulatorProgram Simulator;
  std::string Hislip;
  std::string Vxi11;
  std::string Serial;
};

INSTANTIATE_TEST_SUITE_P(Ways, TapBridgeTest, testing::Values("Hislip", "Vxi11", "Serial", "Simulated"),
                         [](const auto& way) { return way.param; });

TEST_P(TapBridgeTest, KeepsTheConversationThatTheConsoleHas) {
  TapProgram tap("--listen", Instrument(), {"--log", Folder.At("tap.log")});
  for (const std::string answer : {"0", "5"}) {
    const Outcome run =
        RunPortico(BareOptions + Arguments{"--log", Folder.At("run.log"), RawName(tap.Port)},
                   "*IDN?\n*ESE?\n*ESE 5\nDISP:TEXT \"what?\"\nTRAC:POIN 30000\nTRAC:DATA?\nSYST:ERR?\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("> *ESE?\n< " + answer + "\n"), std::string::npos);
    EXPECT_NE(run.out.find("> SYST:ERR?\n< 0,\"No error\"\n"), std::string::npos);
  }
  const Outcome ended = tap.End();
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  const Outcome diff = Process({PORTICO_LOG, "diff", Folder.At("run.log"), Folder.At("tap.log")}).Wait();
  EXPECT_EQ(diff.status, 0) << diff.out << diff.err;
  EXPECT_EQ(CountOf(BytesOf(Folder.At("tap.log")), "SessionCloseTimeStamp"), 2);
}

TEST_P(TapBridgeTest, QueryWithoutAnswerIsSilenceAndTheNextIsAnswered) {
  if (GetParam() == "Serial") return; // what such a line is to be listened to for takes too long
  TapProgram tap("--listen", Instrument(), {"--timeout", "300"});
  const Outcome run = RunPortico(BareOptions + Arguments{"--timeout", "1500", RawName(tap.Port)},
                                 "SIM:SIL ON\n*ESE?\nSIM:SIL OFF\n*OPC?\n");
  EXPECT_EQ(run.status, 4);
  EXPECT_NE(run.out.find("> *OPC?\n< 1\n"), std::string::npos) << run.out;
  const Outcome ended = tap.End();
  EXPECT_NE(ended.err.find("Timeout expired before the answer was complete"), std::string::npos) << ended.err;
}

TEST(TapWithoutInstrumentTest, ClientIsClosedAndTheReasonIsTold) {
  TapProgram tap("--listen", HislipName("1"));
  EXPECT_NE(RunPortico(BareOptions + Arguments{"--timeout", "2000", RawName(tap.Port)}, "*OPC?\n").status, 0);
  const Outcome ended = tap.End();
  EXPECT_EQ(ended.status, 0);
  const std::string told =
      "portico-tap: TCPIP0::127.0.0.1::hislip0,1::INSTR: The instrument refused the connection: 127.0.0.1, port 1; "
      "check the port, and that the instrument serves it.\n";
  EXPECT_EQ(ended.err.substr(0, told.size()), told); // once for each connection
}

} // namespace
} // namespace portico::test
