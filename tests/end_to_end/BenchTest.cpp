#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

#include <csignal>

namespace portico::test {
namespace {

const Arguments Bench = {"--bench", "25", "*IDN?"};

TEST(Bench, PrintsFiguresOfAQueryOverEachTransport) {
  SimulatorProgram simulator({"--hislip", "0", "--serial"});
  const std::string hislip = simulator.NextAddress(); // ADDR:PORT hislip
  const std::string port = hislip.substr(hislip.find(':') + 1, hislip.find(' ') - hislip.find(':') - 1);
  const std::string line = simulator.NextAddress(); // PATH serial
  for (const std::string& name :
       {SimulatedMeter, simulator.ResourceName(), "TCPIP::127.0.0.1::hislip0," + port + "::INSTR",
        "ASRL" + line.substr(0, line.find(' ')) + "::INSTR"}) {
    const Outcome outcome = RunPortico(Bench + Arguments{name});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out.find("queries  25\nmedian   "), 0U) << outcome.out;
    EXPECT_NE(outcome.out.find("\n90 %     "), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("\n99 %     "), std::string::npos) << outcome.out;
    EXPECT_NE(outcome.out.find("\nmaximum  "), std::string::npos) << outcome.out;
    EXPECT_EQ(CountLines(outcome.out), 5) << outcome.out;
  }
}

TEST(Bench, SavesEachSample) {
  const TemporaryFolder folder;
  const Outcome outcome = RunPortico(Arguments{SimulatedMeter} + Bench + Arguments{"--bench-csv", folder.At("s.csv")});
  EXPECT_EQ(outcome.status, 0);
  const std::string samples = folder.Read("s.csv");
  EXPECT_EQ(samples.find("query,microseconds\n1,"), 0U) << samples;
  EXPECT_NE(samples.find("\n25,"), std::string::npos) << samples;
  EXPECT_EQ(CountLines(samples), 26) << samples;
}

TEST(Bench, InstrumentThatRefusesIs3) {
  ScriptedServer server({});
  server.StopListening();
  const Outcome outcome = RunPortico(Bench + Arguments{server.ResourceName()});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "portico-run: cannot open " + server.ResourceName() +
                             ": The instrument refused the connection: 127.0.0.1, port " +
                             std::to_string(server.Port()) + "; check the port, and that the instrument serves it.\n");
  EXPECT_EQ(outcome.out, "");
}

TEST(Bench, QueryWithoutAnAnswerIs4) {
  const Outcome outcome = RunPortico({"--bench", "3", "*CLS", "--timeout", "20", SimulatedMeter});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, "portico-run: query 1: Timeout expired before the answer was complete: dmm.\n");
}

TEST(Bench, InterruptIs130AndLetsTheQueryComeToItsEnd) {
  ScriptedServer server({});
  Process process(PorticoRun({"--bench", "3", "SLOW?", "--timeout", "60000", server.ResourceName()}));
  server.WaitForReceived("SLOW?\r\n");
  process.Signal(SIGINT);
  server.Send("answer\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 130);
  EXPECT_EQ(outcome.err, "portico-run: interrupted after 1 of 3 queries\n");
  EXPECT_EQ(server.Received(), "SLOW?\r\n");
}

} // namespace
} // namespace portico::test
