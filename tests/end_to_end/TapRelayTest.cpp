#include "end_to_end/RunLogs.h"
#include "end_to_end/TapPrograms.h"

#include <ostream>
#include <tuple>

namespace portico::test {
namespace {

struct Client {
  std::string Name;
  std::string TapOption;
  std::string (*ResourceName)(const std::string& port);
};

/// A simulator, and its names over all ways to it.
class Simulator {
public:
  Simulator() : m_program({"--hislip", "0", "--vxi11", "0", "--serial"}) {
    m_raw = PortOf(m_program.Address());
    m_hislip = PortOf(m_program.NextAddress());
    m_vxi11 = PortOf(m_program.NextAddress());
    m_serial = m_program.NextAddress();
    m_serial = m_serial.substr(0, m_serial.find(' '));
  }

  std::string Name(const std::string& way) const {
    if (way == "Raw") return RawName(m_raw);
    if (way == "Hislip") return HislipName(m_hislip);
    if (way == "Vxi11") return Vxi11Name(m_vxi11);
    return way == "Serial" ? "ASRL" + m_serial + "::INSTR" : SimulatedMeter;
  }
  void Kill() {
    m_program.Program().Signal(SIGKILL);
    m_program.Program().Wait();
  }

private:
  SimulatorProgram m_program;
  std::string m_raw;
  std::string m_hislip;
  std::string m_vxi11;
  std::string m_serial;
};

/// A client that speaks VXI-11 or HiSLIP, and an instrument that is reached in another way.
class TapRelayTest : public testing::TestWithParam<std::tuple<Client, std::string>> {
protected:
  static const std::string& Way() { return std::get<1>(GetParam()); }
  static std::string TapOption() { return std::get<0>(GetParam()).TapOption; }
  static std::string Tapped(const TapProgram& tap) { return std::get<0>(GetParam()).ResourceName(tap.Port); }
  std::string Log(const std::string& name) const { return Folder.At(name); }
  std::string Instrument() const { return Meter.Name(Way()); }

  const TemporaryFolder Folder;
  Simulator Meter;
};

void PrintTo(const Client& client, std::ostream* stream) { *stream << client.Name; }

const Client Vxi11Client{"Vxi11", "--vxi11", Vxi11Name};
const Client HislipClient{"Hislip", "--hislip", HislipName};

std::string NameOf(const testing::TestParamInfo<std::tuple<Client, std::string>>& way) {
  return std::get<0>(way.param).Name + "To" + std::get<1>(way.param);
}

INSTANTIATE_TEST_SUITE_P(Vxi11, TapRelayTest,
                         testing::Combine(testing::Values(Vxi11Client),
                                          testing::Values("Raw", "Hislip", "Serial", "Simulated")),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Hislip, TapRelayTest,
                         testing::Combine(testing::Values(HislipClient),
                                          testing::Values("Raw", "Vxi11", "Serial", "Simulated")),
                         NameOf);

TEST_P(TapRelayTest, KeepsTheConversationThatTheConsoleHasWithTheInstrument) {
  const std::string commands =
      "*IDN?\n*ESE?\n*ESE 5;*ESE?\nDISP:TEXT \"what?\"\nTRAC:POIN 30000\nTRAC:DATA?\nMEAS:VOLT:DC?\nSYST:ERR?\n";
  const Outcome direct =
      RunPortico(BareOptions + Arguments{"--log", Log("direct.log"), Simulator().Name(Way())}, commands);
  EXPECT_EQ(direct.status, 0) << direct.err;
  TapProgram tap(TapOption(), Instrument(), {"--log", Log("tap.log"), "--show"});
  const Outcome run = RunPortico(BareOptions + Arguments{Tapped(tap)}, commands);
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, direct.out);
  const Outcome ended = tap.End();
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  EXPECT_EQ(ended.out.substr(ended.out.find('\n') + 1), run.out);
  const Outcome diff = Process({PORTICO_LOG, "diff", Log("direct.log"), Log("tap.log")}).Wait();
  EXPECT_EQ(diff.status, 0) << diff.out << diff.err;
}

TEST_P(TapRelayTest, EachClientIsASessionAndFindsTheInstrumentAsItWasLeft) {
  TapProgram tap(TapOption(), Instrument(), {"--log", Log("tap.log")});
  // The query at the end tells that the setting has arrived: the next client clears what a serial line still holds.
  for (const std::string answer : {"0", "5", "5"}) {
    EXPECT_EQ(RunPortico(BareOptions + Arguments{Tapped(tap)}, "*ESE?\n*ESE 5\n*OPC?\n").out,
              "> *ESE?\n< " + answer + "\n> *ESE 5\n> *OPC?\n< 1\n");
  }
  EXPECT_EQ(tap.End().status, 0);
  EXPECT_EQ(CountOf(BytesOf(Log("tap.log")), "SessionCloseTimeStamp"), 3);
}

TEST_P(TapRelayTest, AnotherClientIsRefusedInWordsOfItsProtocol) {
  TapProgram tap(TapOption(), Instrument());
  Process first(PorticoRun(BareOptions + Arguments{Tapped(tap)}));
  first.Write("*OPC?\n");
  first.WaitForOutput("< 1\n");
  const Outcome second = RunPortico(BareOptions + Arguments{"--timeout", "2000", Tapped(tap)}, "*OPC?\n");
  EXPECT_EQ(second.status, 3);
  const std::string reason = TapOption() == "--vxi11" ? "has no link left" : "too many clients";
  EXPECT_NE(second.err.find(reason), std::string::npos) << second.err;
  first.Write("*ESE?\n");
  first.WaitForOutput("< 0\n");
  EXPECT_EQ(first.Wait().status, 0);
  EXPECT_EQ(RunPortico(BareOptions + Arguments{Tapped(tap)}, "*OPC?\n").out, "> *OPC?\n< 1\n");
}

TEST_P(TapRelayTest, QueryWithoutAnswerTimesOutAndTheNextIsAnswered) {
  if (Way() == "Serial") return; // what such a line is to be listened to for takes too long
  TapProgram tap(TapOption(), Instrument(), {"--timeout", "300"});
  const Outcome run =
      RunPortico(BareOptions + Arguments{"--timeout", "1500", Tapped(tap)}, "SIM:SIL ON\n*ESE?\nSIM:SIL OFF\n*OPC?\n");
  EXPECT_EQ(run.status, 4);
  EXPECT_NE(run.out.find("> *OPC?\n< 1\n"), std::string::npos) << run.out;
  const Outcome ended = tap.End();
  EXPECT_NE(ended.err.find("Timeout expired before the answer was complete"), std::string::npos) << ended.err;
}

TEST_P(TapRelayTest, InstrumentThatDiesIsToldInWordsOfTheProtocol) {
  if (Way() == "Serial" || Way() == "Simulated") return; // a line has no end, and a simulated instrument is our own
  TapProgram tap(TapOption(), Instrument(), {"--timeout", "60000"});
  Process run(PorticoRun(BareOptions + Arguments{"--timeout", "60000", Tapped(tap)}));
  run.Write("SIM:SIL ON\n*ESE?\n");
  run.WaitForOutput("> *ESE?\n");
  Meter.Kill();
  const Outcome ended = run.Wait();
  EXPECT_EQ(ended.status, 4) << ended.err;
  const std::string reason = TapOption() == "--vxi11" ? "had an error of its interface" : "closed the connection";
  EXPECT_NE(ended.err.find(reason), std::string::npos) << ended.err;
}

class TapRelayWithoutInstrumentTest : public testing::TestWithParam<Client> {};

INSTANTIATE_TEST_SUITE_P(Protocols, TapRelayWithoutInstrumentTest, testing::Values(Vxi11Client, HislipClient),
                         [](const auto& client) { return client.param.Name; });

TEST_P(TapRelayWithoutInstrumentTest, ClientIsRefusedAndTheReasonIsTold) {
  TapProgram tap(GetParam().TapOption, RawName("1"));
  const Outcome run =
      RunPortico(BareOptions + Arguments{"--timeout", "2000", GetParam().ResourceName(tap.Port)}, "*OPC?\n");
  EXPECT_EQ(run.status, 3) << run.err;
  const std::string reason =
      GetParam().TapOption == "--vxi11" ? "has no device \"inst0\"" : "(the instrument cannot be reached)";
  EXPECT_NE(run.err.find(reason), std::string::npos) << run.err;
  const Outcome ended = tap.End();
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err.substr(0, ended.err.find('\n')),
            "portico-tap: TCPIP0::127.0.0.1::1::SOCKET: The instrument refused the connection: 127.0.0.1, port 1; "
            "check the port, and that the instrument serves it.");
}

} // namespace
} // namespace portico::test
