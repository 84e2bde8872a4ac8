#include "end_to_end/Programs.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

const Arguments Impatient = BareOptions + Arguments{"--timeout", "200"};

std::string Peer(const ScriptedServer& server) { return "127.0.0.1, port " + std::to_string(server.Port()); }

std::string Notice(const ScriptedServer& server) {
  return "portico-run: TCPIP0::127.0.0.1::" + std::to_string(server.Port()) +
         "::SOCKET: the connection was made anew; unread answers are lost\n";
}

TEST(UnrulyInstrument, AfterATimeoutTheNextQueryGetsAFreshConnectionAndANotice) {
  const ScriptedServer server({{"FAST?", Reaction::Answer("fast\n")}});
  const Outcome outcome = RunPortico(Impatient + Arguments{server.ResourceName()}, "SLOW?\nFAST?\n");
  const std::string timeout = "Timeout expired before the answer was complete: " + Peer(server) + ".\n";
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "> SLOW?\n< " + timeout + "> FAST?\n< fast\n");
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: " + timeout + Notice(server));
  EXPECT_EQ(server.Connections(), 2U);
}

TEST(UnrulyInstrument, LateAnswerHasNoRoadToTheNextQuery) {
  ScriptedServer server({{"FAST?", Reaction::Answer("fast\n")}});
  Process process(PorticoRun(Impatient + Arguments{server.ResourceName()}));
  process.Write("SLOW?\n");
  process.WaitForOutput("< Timeout expired");
  server.Send("late\n");
  process.Write("FAST?\n");
  process.WaitForOutput("> FAST?\n");
  EXPECT_EQ(process.ReadLine(), "< fast");
  EXPECT_EQ(process.Wait().status, 4);
}

TEST(UnrulyInstrument, EachFreshConnectionIsTold) {
  const ScriptedServer server({{"FAST?", Reaction::Answer("fast\n")}});
  const Outcome outcome =
      RunPortico(Impatient + Arguments{server.ResourceName()}, "SLOW?\nFAST?\nSLOW?\nFAST?\nFAST?\n");
  EXPECT_EQ(outcome.status, 4);
  const std::string notice = Notice(server);
  const std::size_t first = outcome.err.find(notice);
  ASSERT_NE(first, std::string::npos) << outcome.err;
  const std::size_t second = outcome.err.find(notice, first + 1);
  ASSERT_NE(second, std::string::npos) << outcome.err;
  EXPECT_EQ(outcome.err.find(notice, second + 1), std::string::npos) << outcome.err;
  EXPECT_EQ(server.Connections(), 3U);
}

TEST(UnrulyInstrument, InstrumentThatNeverReadsIsATimeout) {
  const ScriptedServer server({}, {.ipv6 = false, .deaf = true});
  const Outcome outcome = RunPortico(Impatient + Arguments{server.ResourceName()}, "*IDN?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "> *IDN?\n< Timeout expired before the answer was complete: " + Peer(server) + ".\n");
}

TEST(UnrulyInstrument, ClosesInsteadOfAnAnswer) {
  const ScriptedServer server({{"BYE?", Reaction::Close()}, {"Q?", Reaction::Answer("answer\n")}});
  const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "BYE?\nQ?\n");
  const std::string closed = "The instrument closed the connection: " + Peer(server) + ".\n";
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "> BYE?\n< " + closed + "> Q?\n< answer\n");
  EXPECT_EQ(outcome.err, "portico-run: standard input:1: " + closed + Notice(server));
}

TEST(UnrulyInstrument, ClosesBeforeTheFirstLine) {
  ScriptedServer server({{"Q?", Reaction::Answer("answer\n")}});
  Process process(PorticoRun(BareOptions + Arguments{server.ResourceName()}));
  server.Send({}); // waits for the connection
  server.DropClients();
  process.Write("Q?\n");
  const Outcome outcome = process.Wait();
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "portico-run: TCPIP0::127.0.0.1::" + std::to_string(server.Port()) +
                             "::SOCKET: the instrument had closed the connection; it was made anew\n");
  EXPECT_EQ(outcome.out, "> Q?\n< answer\n");
}

TEST(UnrulyInstrument, ClosesInTheMiddleOfAnAnswer) {
  const ScriptedServer server({{"HALF?", Reaction::Close("half an ans")}, {"Q?", Reaction::Answer("answer\n")}});
  const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "HALF?\nQ?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out, "> HALF?\n< The instrument closed the connection: " + Peer(server) + ".\n> Q?\n< answer\n");
}

TEST(UnrulyInstrument, EveryByteOfAnAnswerIsShown) {
  std::string garbage;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != '\n') garbage += static_cast<char>(byte);
  }
  const ScriptedServer server({{"GARBAGE?", Reaction::Answer(garbage + "\n")}, {"Q?", Reaction::Answer("answer\n")}});
  const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "GARBAGE?\nQ?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out.substr(0, 11 + 2 + 127), "> GARBAGE?\n< " + garbage.substr(0, 127));
  std::string latin;
  for (int byte = 0xA0; byte < 0x100; ++byte) {
    latin += byte < 0xC0 ? '\xC2' : '\xC3';
    latin += static_cast<char>(byte < 0xC0 ? byte : byte - 0x40);
  }
  EXPECT_TRUE(outcome.out.ends_with("\xC5\xBE\xC5\xB8" + latin + "\n> Q?\n< answer\n")) << outcome.out;
}

TEST(UnrulyInstrument, GarbageInPlaceOfEveryAnswerEndsWell) {
  std::string garbage;
  for (int byte = 0; byte < 256; ++byte) garbage += static_cast<char>(byte);
  const Reaction answer = Reaction::Answer(garbage);
  const ScriptedServer server({{"*OPC?", answer}, {"Q?", answer}, {":SYST:ERR?", answer}});
  const Outcome outcome = RunPortico({"--timeout", "200", server.ResourceName()}, "Q?\nQ?\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(outcome.out.find(std::string("* *OPC?\n< \0\x01\x02", 13)), std::string::npos) << outcome.out;
}

TEST(UnrulyInstrument, AnswerWithoutAnEndIsATimeout) {
  const ScriptedServer server({{"ENDLESS?", Reaction::Endless("7")}, {"Q?", Reaction::Answer("answer\n")}});
  const Outcome outcome = RunPortico(Impatient + Arguments{server.ResourceName()}, "ENDLESS?\nQ?\n");
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.out,
            "> ENDLESS?\n< Timeout expired before the answer was complete: " + Peer(server) + ".\n> Q?\n< answer\n");
}

TEST(UnrulyInstrument, AnswersWithoutAnEndDoNotHoldTheRun) {
  const ScriptedServer server({{"ENDLESS?", Reaction::Endless("7\n")}});
  const Outcome outcome = RunPortico(BareOptions + Arguments{server.ResourceName()}, "ENDLESS?\nREM next\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "> ENDLESS?\n< 7\n# REM next\n");
}

} // namespace
} // namespace portico::test
