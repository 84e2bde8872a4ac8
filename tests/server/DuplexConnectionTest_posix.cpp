#include "server/ClientConnection.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include <sys/socket.h>
#include <unistd.h>

namespace portico::server {
namespace {

using system::FileDescriptor;

/// What has happened to a connection, and what it is to do.
struct Talk {
  std::string Received;
  std::string ToSend;
  bool InputEnded = false;
  bool OutputEnds = false;
};

class DuplexConnection final : public IServedConnection {
public:
  explicit DuplexConnection(Talk& talk) : m_talk(talk) {}

  void Receive(std::string_view bytes, TimePoint /*now*/) override { m_talk.Received += bytes; }
  void Collect(std::string& output, TimePoint /*now*/) override { output += std::exchange(m_talk.ToSend, {}); }
  bool AcceptsInput() const override { return true; }
  std::optional<TimePoint> NextEvent() const override { return std::nullopt; }
  bool Finished(bool inputEnded) const override { return inputEnded && m_talk.OutputEnds; }
  bool IsDuplex() const override { return true; }
  void EndInput(TimePoint /*now*/) override { m_talk.InputEnded = true; }
  bool OutputEnded() const override { return m_talk.OutputEnds; }

private:
  Talk& m_talk;
};

class DuplexConnectionTest : public testing::Test {
protected:
  DuplexConnectionTest() {
    std::array<int, 2> ends{-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends.data()), 0);
    m_peer = FileDescriptor(ends[0]);
    m_connection =
        std::make_unique<ClientConnection>(FileDescriptor(ends[1]), std::make_unique<DuplexConnection>(m_talk));
  }

  void Arrive(std::string_view bytes) {
    EXPECT_EQ(write(m_peer.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  /// What the peer reads next; its end is told by "-".
  std::string Read() {
    std::array<char, 100> buffer{};
    const ssize_t count = read(m_peer.Get(), buffer.data(), buffer.size());
    return count == 0 ? "-" : std::string(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }

  Talk m_talk;
  FileDescriptor m_peer;
  std::unique_ptr<ClientConnection> m_connection;
};

TEST_F(DuplexConnectionTest, IsListenedToWhileThePeerTakesNothing) {
  m_talk.ToSend.assign(std::size_t{4} << 20U, 'x');
  m_connection->Exchange(false, {});
  EXPECT_TRUE(m_connection->WantsOutput());
  EXPECT_TRUE(m_connection->WantsInput());
  Arrive("stop");
  m_connection->Exchange(true, {});
  EXPECT_EQ(m_talk.Received, "stop");
}

TEST_F(DuplexConnectionTest, IsToldThatThePeerHasEndedItsSide) {
  shutdown(m_peer.Get(), SHUT_WR);
  m_connection->Exchange(true, {});
  EXPECT_TRUE(m_talk.InputEnded);
  EXPECT_FALSE(m_connection->Finished());
}

TEST_F(DuplexConnectionTest, EndsItsOutputBehindTheLastBytesAndGoesOnListening) {
  m_talk.ToSend = "last";
  m_talk.OutputEnds = true;
  m_connection->Exchange(false, {});
  EXPECT_EQ(Read(), "last");
  EXPECT_EQ(Read(), "-");
  Arrive("more");
  m_connection->Exchange(true, {});
  EXPECT_EQ(m_talk.Received, "more");
  EXPECT_FALSE(m_connection->Finished());
}

TEST_F(DuplexConnectionTest, GetsWhatCameBeforeABreak) {
  Arrive(std::string(100000, 'x'));
  m_peer = {};
  m_connection->Break({});
  EXPECT_EQ(m_talk.Received.size(), 100000U);
  EXPECT_TRUE(m_connection->Finished());
}

} // namespace
} // namespace portico::server
