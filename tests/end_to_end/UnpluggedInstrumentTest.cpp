#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

const std::string Input = "portico-run: standard input:";

std::string Peer(const ScriptedServer& server) { return "127.0.0.1, port " + std::to_string(server.Port()); }
std::string Refused(const ScriptedServer& server) {
  return ": The instrument refused the connection: " + Peer(server) +
         "; check the port, and that the instrument serves it.";
}
std::string Closed(const ScriptedServer& server) {
  return ": The instrument closed the connection: " + Peer(server) + ".";
}

/// Answers as it should, closes its connection at BYE? and has no other from then on.
class UnpluggedInstrument : public testing::Test {
protected:
  Outcome Run(const Arguments& arguments, const std::string& lines) {
    Process process(PorticoRun(arguments + Arguments{server.ResourceName()}));
    server.Send({}); // waits for the connection
    server.StopListening();
    process.Write(lines);
    return process.Wait();
  }

  ScriptedServer server{{{"*OPC?", Reaction::Answer("1\n")},
                         {"BYE?", Reaction::Close()},
                         {":SYST:ERR?", Reaction::Answer("0,\"No error\"\n")}}};
};

TEST_F(UnpluggedInstrument, EveryAnswerThatIsMissingTellsTheReason) {
  const Outcome outcome = Run({}, "BYE?\n*CLS\n");
  const std::string none = "< There is no connection: " + Peer(server) + ", refused it.\n";
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "* *OPC?\n< 1\n> BYE?\n< The instrument closed the connection: " + Peer(server) +
                             ".\n* :SYST:ERR?\n" + none + "* *OPC?\n" + none + "> *CLS\n* :SYST:ERR?\n" + none);
}

TEST_F(UnpluggedInstrument, ACauseThatRepeatsIsToldOnceWithItsCountAtTheEnd) {
  std::string lines = "BYE?\n";
  for (int line = 2; line <= 300; ++line) lines += "*CLS\n";
  const Outcome outcome = Run({"--quiet"}, lines);
  EXPECT_EQ(outcome.status, 4);
  // Of the first line the last of three writes, of all others each.
  EXPECT_EQ(outcome.err, Input + "1" + Closed(server) + "\n" + Input + "1" + Refused(server) + "\n" + Input + "300" +
                             Refused(server) + " (898 times)\n");
}

TEST_F(UnpluggedInstrument, ARunOfWritesAloneTellsItLikewise) {
  const Outcome outcome = Run(BareOptions, "BYE?\n*CLS\n*RST\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, Input + "1" + Closed(server) + "\n" + Input + "2" + Refused(server) + "\n" + Input + "3" +
                             Refused(server) + " (2 times)\n");
  EXPECT_TRUE(outcome.out.ends_with("> *CLS\n> *RST\n")) << outcome.out;
}

TEST_F(UnpluggedInstrument, ARunThatStopsAtErrorsStopsBehindTheLine) {
  const Outcome outcome = Run({"--stop-on-error"}, "BYE?\n*CLS\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, Input + "1" + Closed(server) + "\n" + Input + "1" + Refused(server) + "\n");
}

TEST(SilentInstrument, IsToldOnceWithItsCountAtTheEnd) {
  const ScriptedServer server({});
  const Outcome outcome = RunPortico({"--timeout", "100", server.ResourceName()}, "Q?\n*CLS\n");
  const std::string anew = "portico-run: TCPIP0::127.0.0.1::" + std::to_string(server.Port()) +
                           "::SOCKET: the connection was made anew; unread answers are lost";
  const std::string timeout = ": Timeout expired before the answer was complete: " + Peer(server) + ".";
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.err, anew + "\n" + Input + "1" + timeout + "\n" + anew + " (4 times)\n" + Input + "2" + timeout +
                             " (5 times)\n");
  EXPECT_EQ(server.Received(), "*OPC?\r\nQ?\r\n:SYST:ERR?\r\n*OPC?\r\n*CLS\r\n:SYST:ERR?\r\n");
}

} // namespace
} // namespace portico::test
