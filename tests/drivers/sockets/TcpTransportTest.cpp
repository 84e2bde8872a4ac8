#include "drivers/sockets/TcpTransport.h"

#include "drivers/TransportCalls.h"
#include "support/doubles/ScriptedServer.h"

#include <array>
#include <gmock/gmock.h>
#include <memory>
#include <vector>

namespace portico::test {
namespace {

using namespace drivers;

class TcpTransportHost : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Hosts, TcpTransportHost, testing::Values("127.0.0.1", "localhost", "::1"));

TEST_P(TcpTransportHost, CarriesBytesBothWays) {
  const bool ipv6 = std::string(GetParam()) == "::1";
  if (ipv6 && !ScriptedServer::HasIpv6()) { // a machine without IPv6 gets a failure, not a hang
    EXPECT_FALSE(TcpTransport(GetParam(), 1).Open(Soon()).Succeeded());
    return;
  }
  ScriptedServer server({{"PING", Reaction::Answer("PONG, and a text longer than the buffer\n")}}, {ipv6, false});
  TcpTransport transport(GetParam(), server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("PING\r\n", Soon()).Succeeded());
  EXPECT_EQ(ReadAll(transport, 40), "PONG, and a text longer than the buffer\n");
  EXPECT_EQ(server.Received(), "PING\r\n");
}

TEST(TcpTransport, OpensAfreshAfterClosing) {
  ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  TcpTransport transport("127.0.0.1", server.Port());
  for (std::size_t connection = 1; connection <= 3; ++connection) {
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
    EXPECT_EQ(ReadAll(transport, 2), "1\n");
    EXPECT_EQ(server.Connections(), connection);
    transport.Close();
    server.WaitForNoClient();
  }
  transport.Close();
}

TEST(TcpTransport, TheDestructorClosesTheConnection) {
  ScriptedServer server({});
  {
    TcpTransport transport("127.0.0.1", server.Port());
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write("A\n", Soon()).Succeeded());
    server.WaitForReceived("A\n");
  }
  server.WaitForNoClient();
  EXPECT_EQ(server.Connections(), 1u);
}

TEST(TcpTransport, AClosedPortRefuses) {
  ScriptedServer server({});
  server.StopListening();
  TcpTransport transport("127.0.0.1", server.Port());
  const DriverResult result = transport.Open(Soon());
  EXPECT_EQ(result.Status, DriverStatus::ConnectionRefused);
  EXPECT_EQ(result.Detail, "127.0.0.1, port " + std::to_string(server.Port()));
}

TEST(TcpTransport, AnUnknownHostIsSaidToBeOne) {
  TcpTransport transport("a..b", 5025);
  EXPECT_EQ(transport.Open(Soon()).Status, DriverStatus::UnknownHost);
}

TEST(TcpTransport, AHostThatDoesNotAnswerIsGivenUp) {
  const ScriptedServer server({}, {.deaf = true});
  // The first ones are queued by the system; once its queue is full, connections are left hanging.
  std::vector<std::unique_ptr<TcpTransport>> transports;
  DriverResult result;
  while (result.Succeeded() && transports.size() < 64) {
    transports.push_back(std::make_unique<TcpTransport>("127.0.0.1", server.Port()));
    result = transports.back()->Open(VerySoon());
  }
  EXPECT_EQ(result.Status, DriverStatus::ConnectTimeout);
  EXPECT_EQ(result.Detail, "127.0.0.1, port " + std::to_string(server.Port()));
}

TEST(TcpTransport, AReadThatNothingComesForTimesOut) {
  ScriptedServer server({});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  std::array<char, 4> buffer = {};
  const Received received = transport.Read(buffer.data(), buffer.size(), VerySoon());
  EXPECT_EQ(received.Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(received.Count, 0u);
}

TEST(TcpTransport, NothingIsReadBehindTheDeadline) {
  ScriptedServer server({});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  server.Send("12");
  std::array<char, 1> buffer = {};
  EXPECT_EQ(transport.Read(buffer.data(), 1, Soon()).Count, 1u);
  EXPECT_EQ(transport.Read(buffer.data(), 1, TimePoint()).Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(transport.Read(buffer.data(), 1, Soon()).Count, 1u);
  EXPECT_EQ(buffer.front(), '2');
}

TEST(TcpTransport, TellsBeforeItWaits) {
  ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  TcpTransport transport("127.0.0.1", server.Port());
  std::string bytes; // that the server had by the last wait
  int waits = 0;
  transport.OnWait([&] {
    ++waits;
    bytes = server.Received();
  });
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_EQ(waits, 1);
  EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
  EXPECT_EQ(waits, 1) << "the system takes a short text at once";
  server.WaitForReceived("Q?\r\n");
  EXPECT_EQ(ReadAll(transport, 2), "1\n");
  EXPECT_GE(waits, 2);
  EXPECT_EQ(bytes, "Q?\r\n");
}

TEST(TcpTransport, TellsBeforeAWriteWaits) {
  const ScriptedServer server({}, {.deaf = true});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  int waits = 0;
  transport.OnWait([&] { ++waits; });
  const std::string text(1'000'000, 'x');
  while (transport.Write(text, VerySoon()).Succeeded()) continue;
  EXPECT_GE(waits, 1);
}

TEST(TcpTransport, AWriteThatNobodyTakesTimesOut) {
  const ScriptedServer server({}, {.deaf = true});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  // Until the system's buffers between the two ends are full.
  const std::string text(1'000'000, 'x');
  DriverResult result;
  while (result.Succeeded()) result = transport.Write(text, VerySoon());
  EXPECT_EQ(result.Status, DriverStatus::WriteTimeout);
}

TEST(TcpTransport, ALongTextGoesOutWhole) {
  ScriptedServer server({});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  const std::string text = std::string(5'000'000, 'x') + "end\n";
  EXPECT_TRUE(transport.Write(text, Soon()).Succeeded());
  server.WaitForReceived("end\n");
  EXPECT_TRUE(server.Received() == text);
}

TEST(TcpTransport, APeerThatClosesIsNotAnEmptyAnswer) {
  ScriptedServer server({{"BYE", Reaction::Close()}});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("BYE\n", Soon()).Succeeded());
  std::array<char, 4> buffer = {};
  EXPECT_EQ(transport.Read(buffer.data(), buffer.size(), Soon()).Result.Status, DriverStatus::ConnectionClosed);
}

TEST(TcpTransport, WritingToAPeerThatHasClosedFailsWithoutASignal) {
  ScriptedServer server({});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("A\n", Soon()).Succeeded());
  server.WaitForReceived("A\n");
  server.DropClients();
  // The first write after the end makes the peer's system answer with a reset; one of the next finds it.
  DriverResult result;
  while (result.Succeeded()) result = transport.Write("B\n", Soon());
  EXPECT_THAT(result.Status, testing::AnyOf(DriverStatus::ConnectionClosed, DriverStatus::ConnectionLost));
}

} // namespace
} // namespace portico::test
