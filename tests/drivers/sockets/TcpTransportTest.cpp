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

TEST(TcpTransport, SeesWithoutReadingThatThePeerHasEndedTheConnection) {
  ScriptedServer server({{"Q?", Reaction::Answer("1\n")}});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Stands());
  EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
  server.WaitForReceived("Q?\r\n");
  char byte = '~';
  EXPECT_EQ(transport.Read(&byte, 1, Soon()).Count, 1u);
  EXPECT_TRUE(transport.Stands()) << "an unread byte ends nothing";
  server.DropClients();
  EXPECT_FALSE(transport.Stands());
  EXPECT_EQ(transport.Read(&byte, 1, Soon()).Count, 1u);
  EXPECT_EQ(byte, '\n');
}

TEST(TcpTransport, WhatCameBeforeTheEndIsReadAheadOfTheNextConnection) {
  ScriptedServer server({{"BYE?", Reaction::Close("old\n")}, {"Q?", Reaction::Answer("new\n")}});
  TcpTransport transport("127.0.0.1", server.Port());
  for (std::size_t connection = 1; connection <= 2; ++connection) {
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write("BYE?\r\n", Soon()).Succeeded());
    server.WaitForConnections(connection);
    server.WaitForNoClient();
  }
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
  std::array<char, 16> buffer = {};
  const Received first = transport.Read(buffer.data(), 2, Soon());
  EXPECT_EQ(std::string(buffer.data(), first.Count), "ol");
  EXPECT_FALSE(first.Anew);
  const Received rest = transport.Read(buffer.data(), buffer.size(), Soon());
  EXPECT_EQ(std::string(buffer.data(), rest.Count), "d\n");
  EXPECT_FALSE(rest.Anew);
  const Received second = transport.Read(buffer.data(), buffer.size(), Soon());
  EXPECT_EQ(std::string(buffer.data(), second.Count), "old\n");
  EXPECT_TRUE(second.Anew);
  const Received third = transport.Read(buffer.data(), buffer.size(), Soon());
  EXPECT_EQ(std::string(buffer.data(), third.Count), "new\n");
  EXPECT_TRUE(third.Anew);
  EXPECT_EQ(transport.Read(buffer.data(), 1, VerySoon()).Result.Status, DriverStatus::ReadTimeout);
}

TEST(TcpTransport, ClosingDropsWhatCameBeforeTheEnd) {
  ScriptedServer server({{"BYE?", Reaction::Close("old\n")}, {"Q?", Reaction::Answer("new\n")}});
  TcpTransport transport("127.0.0.1", server.Port());
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("BYE?\r\n", Soon()).Succeeded());
  server.WaitForNoClient();
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  transport.Close();
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_TRUE(transport.Write("Q?\r\n", Soon()).Succeeded());
  std::array<char, 16> buffer = {};
  const Received received = transport.Read(buffer.data(), buffer.size(), Soon());
  EXPECT_EQ(std::string(buffer.data(), received.Count), "new\n");
  EXPECT_FALSE(received.Anew);
}

TEST(TcpTransport, OfMoreConnectionsThatEndedThanEightTheOldestAreGone) {
  ScriptedServer server({{"1", Reaction::Close("1")},
                         {"2", Reaction::Close("2")},
                         {"3", Reaction::Close("3")},
                         {"4", Reaction::Close("4")},
                         {"5", Reaction::Close("5")},
                         {"6", Reaction::Close("6")},
                         {"7", Reaction::Close("7")},
                         {"8", Reaction::Close("8")},
                         {"9", Reaction::Close("9")}});
  TcpTransport transport("127.0.0.1", server.Port());
  for (char digit = '1'; digit <= '9'; ++digit) {
    ASSERT_TRUE(transport.Open(Soon()).Succeeded());
    EXPECT_TRUE(transport.Write(digit + std::string("\r\n"), Soon()).Succeeded());
    server.WaitForConnections(static_cast<std::size_t>(digit - '0'));
    server.WaitForNoClient();
  }
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  EXPECT_EQ(ReadAll(transport, 8), "23456789");
}

TEST(TcpTransport, TheOrderToGiveUpEndsARead) {
  const ScriptedServer server({}, {.deaf = true});
  system::Cancellation cancellation;
  TcpTransport transport("127.0.0.1", server.Port(), &cancellation);
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  transport.OnWait([&] { cancellation.Request(); });
  std::array<char, 4> buffer = {};
  const Received received = transport.Read(buffer.data(), buffer.size(), In(std::chrono::hours(1)));
  EXPECT_EQ(received.Result.Status, DriverStatus::Cancelled);
  EXPECT_EQ(received.Result.Detail, "127.0.0.1, port " + std::to_string(server.Port()));
}

TEST(TcpTransport, TheOrderToGiveUpEndsAWrite) {
  const ScriptedServer server({}, {.deaf = true});
  system::Cancellation cancellation;
  TcpTransport transport("127.0.0.1", server.Port(), &cancellation);
  ASSERT_TRUE(transport.Open(Soon()).Succeeded());
  transport.OnWait([&] { cancellation.Request(); });
  DriverResult result;
  while (result.Succeeded()) result = transport.Write(std::string(1'000'000, 'x'), In(std::chrono::hours(1)));
  EXPECT_EQ(result.Status, DriverStatus::Cancelled);
}

TEST(TcpTransport, TheOrderToGiveUpEndsAnOpen) {
  const ScriptedServer server({}, {.deaf = true});
  // The first ones are queued by the system; once its queue is full, connections are left hanging.
  std::vector<std::unique_ptr<TcpTransport>> transports;
  do transports.push_back(std::make_unique<TcpTransport>("127.0.0.1", server.Port()));
  while (transports.back()->Open(VerySoon()).Succeeded());
  system::Cancellation cancellation;
  TcpTransport transport("127.0.0.1", server.Port(), &cancellation);
  transport.OnWait([&] { cancellation.Request(); });
  EXPECT_EQ(transport.Open(In(std::chrono::hours(1))).Status, DriverStatus::Cancelled);
}

} // namespace
} // namespace portico::test
