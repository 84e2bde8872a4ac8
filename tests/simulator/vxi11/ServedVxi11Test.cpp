#include "simulator/vxi11/Vxi11Client.h"

namespace portico::test {
namespace {

using namespace simulator;

const std::string PortMapperProgram = "\x00\x01\x86\xA0"s;
/// Asks for the core program over TCP.
const std::string CoreMapping = "\x00\x06\x07\xAF\0\0\0\1\0\0\0\6\0\0\0\0"s;

/// Behind its number, an accepted reply up to its status.
const std::string Accepted = "\0\0\0\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s;

class ServedVxi11Test : public Vxi11ServerTest {
protected:
  /// Sends a call with the number 9, and gives what comes behind the number in the reply's record.
  std::string Ask(const std::string& callBehindItsNumber) {
    client.Send(RpcRecord("\0\0\0\x9"s + callBehindItsNumber));
    const std::string reply = client.Receive();
    EXPECT_EQ(reply, RpcRecord("\0\0\0\x9"s + reply.substr(std::min<std::size_t>(reply.size(), 8))));
    return reply.substr(std::min<std::size_t>(reply.size(), 8));
  }
};

TEST_F(ServedVxi11Test, EachProgramHasAProcedureThatDoesNothing) {
  EXPECT_EQ(Ask(CallHead(CoreProgram, 0)), Accepted + '\0');
  EXPECT_EQ(Ask(CallHead(AbortProgram, 0)), Accepted + '\0');
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 0, 2)), Accepted + '\0');
}

TEST_F(ServedVxi11Test, WhatThereIsNotIsRefused) {
  EXPECT_EQ(Ask(CallHead("\x00\x06\x07\xB1"s, 10)), Accepted + '\1');
  EXPECT_EQ(Ask(CallHead(CoreProgram, 10, 2)), Accepted + "\2\0\0\0\1\0\0\0\1"s);
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 3, 3)), Accepted + "\2\0\0\0\2\0\0\0\2"s);
  EXPECT_EQ(Ask(CallHead(CoreProgram, 25)), Accepted + '\3');
  EXPECT_EQ(Ask(CallHead(AbortProgram, 2)), Accepted + '\3');
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 1, 2)), Accepted + '\3');
  EXPECT_EQ(Ask(CallHead(CoreProgram, 10)), Accepted + '\4');
  EXPECT_EQ(Ask(CallHead(CoreProgram, 11)), Accepted + '\4');
  EXPECT_EQ(Ask(CallHead(AbortProgram, 1)), Accepted + '\4');
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 3, 2)), Accepted + '\4');
  EXPECT_EQ(Ask("\0\0\0\0\0\0\0\3"s), "\0\0\0\1\0\0\0\1\0\0\0\0\0\0\0\2\0\0\0\2"s);
}

TEST_F(ServedVxi11Test, ThePortmapperTellsThePortOfTheCoreChannel) {
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 3, 2) + CoreMapping), Accepted + "\0\0\0\x03\x03"s);
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 3, 2) + "\x00\x06\x07\xAF\0\0\0\1\0\0\0\x11\0\0\0\0"s),
            Accepted + "\0\0\0\0\0"s); // over UDP
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 3, 2) + "\x00\x06\x07\xAF\0\0\0\2\0\0\0\6\0\0\0\0"s),
            Accepted + "\0\0\0\0\0"s); // version 2
  EXPECT_EQ(Ask(CallHead(PortMapperProgram, 3, 2) + "\x00\x01\x86\xA3\0\0\0\1\0\0\0\6\0\0\0\0"s),
            Accepted + "\0\0\0\0\0"s); // another program
}

TEST_F(ServedVxi11Test, APortmapperOfItsOwnKnowsNothingElse) {
  const auto mapper = ServedVxi11::PortMapperFactory([] { return std::uint16_t{1024}; })(111);
  std::string output;
  mapper->Receive(RpcRecord("\0\0\0\1"s + CallHead(PortMapperProgram, 3, 2) + CoreMapping), world.now);
  mapper->Collect(output, world.now);
  EXPECT_EQ(output, RpcRecord("\0\0\0\1"s + Accepted + "\0\0\0\4\0"s));
  mapper->Receive(RpcRecord("\0\0\0\2"s + CallHead(CoreProgram, 0)), world.now);
  output.clear();
  mapper->Collect(output, world.now);
  EXPECT_EQ(output, RpcRecord("\0\0\0\2"s + Accepted + '\1'));
}

TEST_F(ServedVxi11Test, AnAbortEndsACallThatWaits) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Read(link), "(waits)");
  Vxi11Client other(world);
  other.Send(RpcRecord("\0\0\0\1"s + CallHead(AbortProgram, 1) + link));
  EXPECT_EQ(other.Receive(), RpcRecord("\0\0\0\1"s + Accepted + "\0\0\0\0\0"s));
  EXPECT_LE(client.Connection().NextEvent(), world.now);
  EXPECT_EQ(client.Results(), ReadResult(23, 0, ""));
  EXPECT_EQ(Error(), "0,\"No error\"");
}

TEST_F(ServedVxi11Test, AnAbortOfNothingIsNothing) {
  const std::string link = client.Link();
  EXPECT_EQ(Ask(CallHead(AbortProgram, 1) + link), Accepted + "\0\0\0\0\0"s);
  EXPECT_EQ(Ask(CallHead(AbortProgram, 1) + "\0\0\0\x63"s), Accepted + "\0\0\0\0\4"s);
  client.Write(link, "*ESE?");
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "0\n"));
}

TEST_F(ServedVxi11Test, CallsMayDripIn) {
  for (const char byte : RpcRecord("\0\0\0\1"s + CallHead(CoreProgram, 0)).substr(0, 43)) {
    client.Send(std::string(1, byte));
    EXPECT_EQ(client.Receive(), "");
  }
  client.Send("\0"s);
  EXPECT_EQ(client.Receive(), RpcRecord("\0\0\0\1"s + Accepted + '\0'));
}

TEST_F(ServedVxi11Test, CallsThatComeAtOnceAreAnsweredOneByOne) {
  const std::string call = CallHead(CoreProgram, 0);
  client.Send(RpcRecord("\0\0\0\1"s + call) + RpcRecord("\0\0\0\2"s + call));
  std::string output;
  client.Connection().Collect(output, world.now);
  EXPECT_EQ(output, RpcRecord("\0\0\0\1"s + Accepted + '\0'));
  output.clear();
  client.Connection().Collect(output, world.now);
  EXPECT_EQ(output, RpcRecord("\0\0\0\2"s + Accepted + '\0'));
}

TEST_F(ServedVxi11Test, ACallBehindOneThatWaitsWaitsToo) {
  const std::string link = client.Link();
  EXPECT_EQ(client.Read(link), "(waits)");
  client.Send(RpcRecord("\0\0\0\x9"s + CallHead(CoreProgram, 0)));
  EXPECT_EQ(client.Receive(), "");
  EXPECT_TRUE(client.Connection().AcceptsInput());
  client.Send(std::string(65536, '\0'));
  EXPECT_FALSE(client.Connection().AcceptsInput());
  world.now += std::chrono::seconds(1);
  const std::string output = client.Receive();
  EXPECT_NE(output.find(RpcRecord("\0\0\0\x9"s + Accepted + '\0')), std::string::npos);
}

TEST_F(ServedVxi11Test, WhatIsNoCallEndsTheConnection) {
  client.Send(RpcRecord("nonsense"));
  EXPECT_FALSE(client.Connection().Finished(false));
  EXPECT_EQ(client.Receive(), "");
  EXPECT_TRUE(client.Connection().Finished(false));
}

TEST_F(ServedVxi11Test, ARecordWithoutMeasureEndsTheConnection) {
  client.Send("\xFF\xFF\xFF\xFF"s);
  EXPECT_EQ(client.Receive(), "");
  EXPECT_TRUE(client.Connection().Finished(false));
}

TEST_F(ServedVxi11Test, AClientThatHasGoneNeedsNoAnswer) {
  const std::string link = client.Link();
  EXPECT_FALSE(client.Connection().Finished(false));
  EXPECT_EQ(client.Read(link), "(waits)");
  EXPECT_TRUE(client.Connection().Finished(true));
}

TEST_F(ServedVxi11Test, TheDeviceMayCloseTheConnectionBehindItsAnswers) {
  const std::string link = client.Link();
  client.Write(link, "*ESE?;:SIM:CLOS");
  EXPECT_FALSE(client.Connection().Finished(false));
  EXPECT_EQ(client.Read(link, 1), ReadResult(0, 1, "0"));
  EXPECT_FALSE(client.Connection().Finished(false));
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "\n"));
  EXPECT_TRUE(client.Connection().Finished(false));
}

TEST_F(ServedVxi11Test, AnAnswerMayBearTheNumberOfTheCallBefore) {
  const std::string link = client.Link();
  client.Write(link, "SIM:NEXT NUMB");
  client.Write(link, "*ESE?");
  const std::string reply = client.Read(link);
  EXPECT_EQ(reply, RpcRecord("\0\0\0\3"s + Accepted + '\0' + ReadResult(0, 4, "0\n")));
  client.Write(link, "*ESE?");
  EXPECT_EQ(client.Read(link), ReadResult(0, 4, "0\n"));
}

} // namespace
} // namespace portico::test
