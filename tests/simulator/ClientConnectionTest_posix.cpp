#include "simulator/ClientConnection.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include <sys/socket.h>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

/// A connection whose other end is a socket of the test's own, in a time that the test tells.
class ClientConnectionTest : public testing::Test {
protected:
  ClientConnectionTest() {
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()), 0);
    peer_ = FileDescriptor(ends[0]);
    connection_ = std::make_unique<ClientConnection>(FileDescriptor(ends[1]), Instrument::Make("dmm", 1));
  }

  void Arrive(std::string_view bytes) {
    ASSERT_EQ(send(peer_.Get(), bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
    connection_->Exchange(true, now_);
  }

  std::string Received() {
    std::string all;
    std::array<char, 65536> buffer{};
    for (;;) {
      const ssize_t count = recv(peer_.Get(), buffer.data(), buffer.size(), 0);
      if (count <= 0) return all;
      all.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }

  FileDescriptor peer_;
  std::unique_ptr<ClientConnection> connection_;
  TimePoint now_{std::chrono::hours(1)};
};

TEST_F(ClientConnectionTest, AnswersWhatArrives) {
  EXPECT_TRUE(connection_->WantsInput());
  EXPECT_FALSE(connection_->WantsOutput());
  Arrive("*ESE?\n*SRE?\n");
  EXPECT_EQ(Received(), "0\n0\n");
  EXPECT_FALSE(connection_->Finished());
}

TEST_F(ClientConnectionTest, AnswersLaterWhatTakesTime) {
  Arrive("READ?\n");
  EXPECT_EQ(Received(), "");
  ASSERT_EQ(connection_->NextEvent(), now_ + milliseconds(20));
  now_ += milliseconds(20);
  connection_->Exchange(false, now_);
  EXPECT_EQ(Received().size(), 16U);
  EXPECT_FALSE(connection_->NextEvent());
}

TEST_F(ClientConnectionTest, ReadsNoMoreWhileAnswersAreNotTaken) {
  Arrive("SIM:LENG? 3000000\n*ESE?\n");
  EXPECT_TRUE(connection_->WantsOutput());
  EXPECT_FALSE(connection_->WantsInput());
  EXPECT_FALSE(connection_->NextEvent());
  std::string all;
  while (connection_->WantsOutput()) {
    all += Received();
    connection_->Exchange(false, now_);
  }
  all += Received();
  EXPECT_EQ(all, std::string(3'000'000, '5') + "\n0\n");
  EXPECT_TRUE(connection_->WantsInput());
}

TEST_F(ClientConnectionTest, ReadsNoMoreWhileTheInputIsHeld) {
  Arrive("VOLT:NPLC 100;:INIT;*WAI\n");
  const std::string filler = std::string(32768, ' ') + '\n';
  int sent = 0;
  for (; connection_->WantsInput() && sent < 1000; ++sent) Arrive(filler);
  EXPECT_LT(sent, 1000);
  now_ += std::chrono::seconds(2);
  connection_->Exchange(false, now_);
  EXPECT_TRUE(connection_->WantsInput());
  Arrive("SYST:ERR?\n");
  EXPECT_EQ(Received(), "0,\"No error\"\n");
}

TEST_F(ClientConnectionTest, IsFinishedWhenTheClientHasGone) {
  peer_ = FileDescriptor();
  connection_->Exchange(true, now_);
  EXPECT_TRUE(connection_->Finished());
}

TEST_F(ClientConnectionTest, EndsOnlyAfterTheAnswersUnderWay) {
  Arrive("SIM:DEL 1;*ESE?\n");
  shutdown(peer_.Get(), SHUT_WR);
  connection_->Exchange(true, now_);
  EXPECT_FALSE(connection_->WantsInput());
  EXPECT_FALSE(connection_->Finished());
  now_ += std::chrono::seconds(1);
  connection_->Exchange(false, now_);
  EXPECT_EQ(Received(), "0\n");
  EXPECT_TRUE(connection_->Finished());
}

TEST_F(ClientConnectionTest, EndsWhenTheInstrumentAsksForIt) {
  Arrive("*ESE?;SIM:CLOS\n");
  EXPECT_EQ(Received(), "0\n");
  EXPECT_TRUE(connection_->Finished());
}

TEST_F(ClientConnectionTest, CanBeAbandoned) {
  connection_->Abandon();
  EXPECT_TRUE(connection_->Finished());
}

} // namespace
} // namespace portico::simulator
