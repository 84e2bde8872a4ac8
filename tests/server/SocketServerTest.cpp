#include "server/SocketServer.h"

#include "server/TestClient.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace portico::server {
namespace {

using namespace simulator;
using test::TestClient;

std::vector<SocketServer::Listener> AnyPort(Device& device, std::string address = "127.0.0.1") {
  return {{std::move(address), 0, ServedStream::Factory(device)}};
}

/// A server of a fresh device that runs in a thread of its own for as long as the test.
class RunningServer {
public:
  explicit RunningServer(std::string_view kind = "dmm", std::string address = "127.0.0.1")
      : m_device(Device::Make(kind, 1)), m_server(AnyPort(*m_device, std::move(address))) {}
  ~RunningServer() {
    m_server.Stop();
    m_thread.join();
  }
  RunningServer(const RunningServer&) = delete;
  RunningServer& operator=(const RunningServer&) = delete;

  std::uint16_t Port() const { return m_server.Port(); }

private:
  const std::unique_ptr<Device> m_device;
  SocketServer m_server;
  std::thread m_thread{[this] { m_server.Run(); }};
};

TEST(SocketServer, AnswersOverASocket) {
  RunningServer server;
  TestClient client(server.Port());
  ASSERT_TRUE(client.Connected());
  client.Send("*IDN?\n");
  EXPECT_EQ(client.ReadLine(), "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0\n");
}

TEST(SocketServer, ServesTheDeviceAskedFor) {
  RunningServer server("PSU");
  TestClient client(server.Port());
  client.Send("VOLT 2;VOLT?\n");
  EXPECT_EQ(client.ReadLine(), "+2.00000000E+00\n");
}

TEST(SocketServer, ListensOnIpv6) {
  std::unique_ptr<RunningServer> server;
  try {
    server = std::make_unique<RunningServer>("dmm", "::1");
  } catch (const std::system_error& error) {
    EXPECT_NE(error.code().value(), 0); // a machine without IPv6 says so
    return;
  }
  TestClient client(server->Port(), true);
  ASSERT_TRUE(client.Connected());
  client.Send("*ESE?\n");
  EXPECT_EQ(client.ReadLine(), "0\n");
}

TEST(SocketServer, NamesItsEndpoint) {
  const auto device = Device::Make("dmm", 1);
  const SocketServer server(AnyPort(*device));
  EXPECT_NE(server.Port(), 0);
  EXPECT_EQ(server.Endpoint(), "127.0.0.1:" + std::to_string(server.Port()));
}

TEST(SocketServer, AllClientsMeetOneDevice) {
  RunningServer server;
  TestClient first(server.Port());
  TestClient second(server.Port());
  first.Send("*ESE 5;BAD\n*OPC?\n");
  EXPECT_EQ(first.ReadLine(), "1\n");
  second.Send("*ESE?;:SYST:ERR?\n");
  EXPECT_EQ(second.ReadLine(), "5;-113,\"Undefined header\"\n");
}

TEST(SocketServer, TheDeviceOutlivesItsClients) {
  RunningServer server("psu");
  {
    TestClient client(server.Port());
    client.Send("VOLT 5;:OUTP ON;*OPC?\n");
    EXPECT_EQ(client.ReadLine(), "1\n");
  }
  TestClient client(server.Port());
  client.Send("VOLT?;:OUTP?\n");
  EXPECT_EQ(client.ReadLine(), "+5.00000000E+00;1\n");
}

TEST(SocketServer, EachClientGetsItsOwnAnswers) {
  RunningServer server;
  std::vector<std::unique_ptr<TestClient>> clients(8);
  for (auto& client : clients) client = std::make_unique<TestClient>(server.Port());
  for (std::size_t i = 0; i < clients.size(); ++i) clients[i]->Send("SIM:LENG? " + std::to_string(i + 1) + "\n");
  for (std::size_t i = 0; i < clients.size(); ++i) {
    EXPECT_EQ(clients[i]->ReadLine(), std::string(i + 1, '5') + "\n");
  }
}

TEST(SocketServer, ClientsMeasureInTurn) {
  RunningServer server;
  TestClient first(server.Port());
  TestClient second(server.Port());
  first.Send("MEAS:VOLT?\n");
  second.Send("MEAS:RES?\n");
  EXPECT_EQ(first.ReadLine().substr(0, 5), "+1.00");
  EXPECT_EQ(second.ReadLine().substr(0, 5), "+4.70");
}

TEST(SocketServer, OneClientReleasesAnothersAnswer) {
  RunningServer server;
  TestClient waiting(server.Port());
  waiting.Send("VOLT:NPLC 100;:SAMP:COUN 1000;:INIT;*ESE 1;*OPC?\n"); // 2000 s
  TestClient other(server.Port());
  do {
    other.Send("*ESE?\n");
  } while (other.ReadLine() != "1\n"); // until the first client's message has arrived
  other.Send("ABOR\n");
  EXPECT_EQ(waiting.ReadLine(), "1\n");
}

TEST(SocketServer, OneClientsWaitDoesNotHoldAnother) {
  RunningServer server;
  TestClient waiting(server.Port());
  waiting.Send("SIM:DEL 3600;*IDN?\n");
  TestClient other(server.Port());
  other.Send("*ESE?\n");
  EXPECT_EQ(other.ReadLine(), "0\n");
}

TEST(SocketServer, ManyQuestionsAtOnceAreAnsweredInTheirOrder) {
  RunningServer server;
  TestClient client(server.Port());
  constexpr int Count = 3000;
  std::string questions;
  for (int i = 0; i < Count; ++i) questions += "*ESE " + std::to_string(i % 256) + ";*ESE?\n";
  std::thread writer([&] { client.Send(questions); });
  TestClient& reader = client;
  for (int i = 0; i < Count; ++i) ASSERT_EQ(reader.ReadLine(), std::to_string(i % 256) + "\n");
  writer.join();
}

TEST(SocketServer, LargeAnswersArriveWhole) {
  RunningServer server;
  TestClient client(server.Port());
  constexpr std::size_t Size = 20'000'000;
  client.Send("SIM:LENG? " + std::to_string(Size) + "\n*ESE?\n");
  const std::string answer = client.ReadBytes(Size + 1);
  EXPECT_EQ(answer.size(), Size + 1);
  EXPECT_EQ(answer.find_first_not_of('5'), Size);
  EXPECT_EQ(client.ReadLine(), "0\n");
}

TEST(SocketServer, ReadsNoMoreFromAClientThatDoesNotRead) {
  RunningServer server;
  TestClient client(server.Port());
  std::string questions;
  for (int i = 0; i < 1000; ++i) questions += "TRAC:DATA?\n";
  constexpr std::size_t Most = 256U << 20U;
  EXPECT_LT(client.SendUntilBlocked(questions, Most), Most);
  TestClient other(server.Port());
  other.Send("*ESE?\n");
  EXPECT_EQ(other.ReadLine(), "0\n");
}

TEST(SocketServer, ClosesWhenTheInstrumentSaysSo) {
  RunningServer server;
  TestClient client(server.Port());
  client.Send("*ESE?;SIM:CLOS\n");
  EXPECT_EQ(client.ReadLine(), "0\n");
  EXPECT_TRUE(client.ClosedByPeer());
}

TEST(SocketServer, AClientThatEndedItsInputStillGetsItsAnswer) {
  RunningServer server;
  TestClient client(server.Port());
  client.Send("READ?\n");
  client.EndInput();
  EXPECT_EQ(client.ReadLine().size(), 16U);
  EXPECT_TRUE(client.ClosedByPeer());
}

TEST(SocketServer, OutlivesAClientThatGoesInTheMiddle) {
  RunningServer server;
  {
    TestClient client(server.Port());
    client.Send("SIM:ENDL?\n");
    client.ReadBytes(100'000);
  }
  TestClient other(server.Port());
  other.Send("*ESE?\n");
  EXPECT_EQ(other.ReadLine(), "0\n");
}

TEST(SocketServer, StopBeforeRunEndsIt) {
  const auto device = Device::Make("dmm", 1);
  SocketServer server(AnyPort(*device));
  server.Stop();
  server.Run();
  SUCCEED();
}

TEST(SocketServer, StopClosesTheConnections) {
  auto server = std::make_unique<RunningServer>();
  TestClient client(server->Port());
  client.Send("*ESE?\n");
  EXPECT_EQ(client.ReadLine(), "0\n");
  server.reset();
  EXPECT_TRUE(client.ClosedByPeer());
}

TEST(SocketServer, RefusesWhatItCannotServe) {
  const auto device = Device::Make("dmm", 1);
  EXPECT_THROW((SocketServer{AnyPort(*device, "nowhere")}), std::invalid_argument);
  const SocketServer first(AnyPort(*device));
  auto same = AnyPort(*device);
  same.front().Port = first.Port();
  EXPECT_THROW((SocketServer{same}), std::system_error);
}

/// Tells its port, and answers every byte with the same one twice.
class Doubling final : public IServedConnection {
public:
  explicit Doubling(std::uint16_t port) : m_answer(std::to_string(port) + ' ') {}

  void Receive(std::string_view bytes, TimePoint /*now*/) override {
    for (const char byte : bytes) m_answer.append(2, byte);
  }
  void Collect(std::string& output, TimePoint /*now*/) override { output += std::exchange(m_answer, {}); }
  bool AcceptsInput() const override { return true; }
  std::optional<TimePoint> NextEvent() const override { return std::nullopt; }
  bool Finished(bool inputEnded) const override { return inputEnded; }

private:
  std::string m_answer;
};

TEST(SocketServer, ServesEachListenerWithItsOwnProtocol) {
  const auto device = Device::Make("dmm", 1);
  auto listeners = AnyPort(*device);
  listeners.push_back({"127.0.0.1", 0, [](std::uint16_t port) { return std::make_unique<Doubling>(port); }});
  SocketServer server(listeners);
  std::thread running([&server] { server.Run(); });
  TestClient raw(server.Port(0));
  TestClient doubled(server.Port(1));
  EXPECT_EQ(server.Endpoint(1), "127.0.0.1:" + std::to_string(server.Port(1)));
  doubled.Send("ab");
  const std::string expected = std::to_string(server.Port(1)) + " aabb";
  EXPECT_EQ(doubled.ReadBytes(expected.size()), expected);
  raw.Send("*ESE?\n");
  EXPECT_EQ(raw.ReadLine(), "0\n");
  server.Stop();
  running.join();
}

} // namespace
} // namespace portico::server
