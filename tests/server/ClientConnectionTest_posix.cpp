#include "server/ClientConnection.h"

#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include <sys/socket.h>

namespace portico::server {
namespace {

using namespace simulator;
using std::chrono::milliseconds;
using system::FileDescriptor;

/// A connection whose other end is a socket of the test's own, in a time that the test tells.
class ClientConnectionTest : public testing::Test {
protected:
  ClientConnectionTest() {
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()), 0);
    m_peer = FileDescriptor(ends[0]);
    m_connection =
        std::make_unique<ClientConnection>(FileDescriptor(ends[1]), std::make_unique<ServedStream>(*m_device));
  }

  void Arrive(std::string_view bytes) {
    ASSERT_EQ(send(m_peer.Get(), bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
    m_connection->Exchange(true, m_now);
  }

  std::string Received() {
    std::string all;
    std::array<char, 65536> buffer{};
    for (;;) {
      const ssize_t count = recv(m_peer.Get(), buffer.data(), buffer.size(), 0);
      if (count <= 0) return all;
      all.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }

  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  FileDescriptor m_peer;
  std::unique_ptr<ClientConnection> m_connection;
  TimePoint m_now{std::chrono::hours(1)};
};

TEST_F(ClientConnectionTest, AnswersWhatArrives) {
  EXPECT_TRUE(m_connection->WantsInput());
  EXPECT_FALSE(m_connection->WantsOutput());
  Arrive("*ESE?\n*SRE?\n");
  EXPECT_EQ(Received(), "0\n0\n");
  EXPECT_FALSE(m_connection->Finished());
}

TEST_F(ClientConnectionTest, AnswersLaterWhatTakesTime) {
  Arrive("READ?\n");
  EXPECT_EQ(Received(), "");
  ASSERT_EQ(m_connection->NextEvent(), m_now + milliseconds(20));
  m_now += milliseconds(20);
  m_connection->Exchange(false, m_now);
  EXPECT_EQ(Received().size(), 16U);
  EXPECT_FALSE(m_connection->NextEvent());
}

TEST_F(ClientConnectionTest, ReadsNoMoreWhileAnswersAreNotTaken) {
  Arrive("SIM:LENG? 3000000\n*ESE?\n");
  EXPECT_TRUE(m_connection->WantsOutput());
  EXPECT_FALSE(m_connection->WantsInput());
  EXPECT_FALSE(m_connection->NextEvent());
  std::string all;
  while (m_connection->WantsOutput()) {
    all += Received();
    m_connection->Exchange(false, m_now);
  }
  all += Received();
  EXPECT_EQ(all, std::string(3'000'000, '5') + "\n0\n");
  EXPECT_TRUE(m_connection->WantsInput());
}

TEST_F(ClientConnectionTest, ReadsNoMoreWhileTheInputIsHeld) {
  Arrive("VOLT:NPLC 100;:INIT;*WAI\n");
  const std::string filler = std::string(32768, ' ') + '\n';
  int sent = 0;
  for (; m_connection->WantsInput() && sent < 1000; ++sent) Arrive(filler);
  EXPECT_LT(sent, 1000);
  m_now += std::chrono::seconds(2);
  m_connection->Exchange(false, m_now);
  EXPECT_TRUE(m_connection->WantsInput());
  Arrive("SYST:ERR?\n");
  EXPECT_EQ(Received(), "0,\"No error\"\n");
}

TEST_F(ClientConnectionTest, IsFinishedWhenTheClientHasGone) {
  m_peer = FileDescriptor();
  m_connection->Exchange(true, m_now);
  EXPECT_TRUE(m_connection->Finished());
}

TEST_F(ClientConnectionTest, EndsOnlyAfterTheAnswersUnderWay) {
  Arrive("SIM:DEL 1;*ESE?\n");
  shutdown(m_peer.Get(), SHUT_WR);
  m_connection->Exchange(true, m_now);
  EXPECT_FALSE(m_connection->WantsInput());
  EXPECT_FALSE(m_connection->Finished());
  m_now += std::chrono::seconds(1);
  m_connection->Exchange(false, m_now);
  EXPECT_EQ(Received(), "0\n");
  EXPECT_TRUE(m_connection->Finished());
}

TEST_F(ClientConnectionTest, AnEndedInputWaitsForWhatAnotherClientReleases) {
  StreamConnection other(*m_device);
  other.Write("VOLT:NPLC 100;:INIT\n", m_now);
  Arrive("*OPC?\n");
  shutdown(m_peer.Get(), SHUT_WR);
  m_connection->Exchange(true, m_now);
  EXPECT_FALSE(m_connection->Finished());
  other.Write("ABOR\n", m_now);
  ASSERT_LE(m_connection->NextEvent(), m_now);
  m_connection->Exchange(false, m_now);
  EXPECT_EQ(Received(), "1\n");
  EXPECT_TRUE(m_connection->Finished());
}

TEST_F(ClientConnectionTest, EndsWhenTheInstrumentAsksForIt) {
  Arrive("*ESE?;SIM:CLOS\n");
  EXPECT_EQ(Received(), "0\n");
  EXPECT_TRUE(m_connection->Finished());
}

TEST_F(ClientConnectionTest, EndsWhereItBreaks) {
  m_connection->Break(m_now);
  EXPECT_TRUE(m_connection->Finished());
}

} // namespace
} // namespace portico::server
