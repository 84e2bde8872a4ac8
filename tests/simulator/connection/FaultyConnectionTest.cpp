#include "simulator/connection/FaultyConnection.h"

#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

/// What a raw socket's client gets, in a time that the test tells.
class FaultyConnectionTest : public testing::Test {
protected:
  FaultyConnectionTest() { Connect(); }

  void Connect() { m_connection = FaultyConnection::Factory(ServedStream::Factory(*m_device), *m_device)(5025); }
  void Send(std::string_view bytes) { m_connection->Receive(bytes, m_now); }
  std::string Collected() {
    std::string output;
    std::size_t before = 0;
    do {
      before = output.size();
      m_connection->Collect(output, m_now);
    } while (output.size() > before);
    return output;
  }

  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  std::unique_ptr<server::IServedConnection> m_connection;
  TimePoint m_now{std::chrono::hours(1)};
};

TEST_F(FaultyConnectionTest, IsTheOtherConnectionUnlessAFaultIsAskedFor) {
  EXPECT_TRUE(m_connection->AcceptsInput());
  Send("SIM:DEL 1;ECHO? 4\n");
  EXPECT_EQ(m_connection->NextEvent(), m_now + milliseconds(1000));
  EXPECT_FALSE(m_connection->Finished(true));
  m_now += milliseconds(1000);
  EXPECT_EQ(Collected(), "4\n");
  EXPECT_FALSE(m_connection->Finished(false));
  EXPECT_TRUE(m_connection->Finished(true));
}

TEST_F(FaultyConnectionTest, PutsStrayBytesBeforeOneAnswer) {
  Send("SIM:ECHO? 1\nSIM:NEXT STRAY;ECHO? 2\nSIM:ECHO? 3\n");
  EXPECT_EQ(Collected(), "1\n?~\x7f"
                         "2\n3\n");
}

TEST_F(FaultyConnectionTest, BreaksOneAnswerOffInItsMiddle) {
  Send("SIM:ECHO? 1\nSIM:NEXT HALF;ECHO? 1234567\nSIM:ECHO? 3\n");
  EXPECT_EQ(Collected(), "1\n12343\n");
}

TEST_F(FaultyConnectionTest, EndsInPlaceOfAnAnswer) {
  Send("SIM:ECHO? 1\nSIM:NEXT DROP;ECHO? 2\nSIM:ECHO? 3\n");
  EXPECT_EQ(Collected(), "1\n");
  EXPECT_TRUE(m_connection->Finished(false));
  EXPECT_FALSE(m_connection->NextEvent());
  EXPECT_EQ(Collected(), "");
  Connect();
  Send("SIM:ECHO? 4\n");
  EXPECT_EQ(Collected(), "4\n");
}

TEST_F(FaultyConnectionTest, AFaultStaysWithItsAnswer) {
  Send("SIM:NEXT STRAY;DEL 1;ECHO? 1\n"); // which is not ready yet
  const auto first = std::move(m_connection);
  Connect();
  Send("SIM:ECHO? 2\n");
  EXPECT_EQ(Collected(), "2\n");
  m_now += milliseconds(1000);
  m_connection = FaultyConnection::Factory(ServedStream::Factory(*m_device), *m_device)(5025);
  std::string output;
  first->Collect(output, m_now);
  EXPECT_EQ(output, "?~\x7f"
                    "1\n");
}

TEST_F(FaultyConnectionTest, AWrongNumberIsNothingWhereThereAreNone) {
  Send("SIM:NEXT NUMBER;ECHO? 1\nSIM:ECHO? 2\n");
  EXPECT_EQ(Collected(), "1\n2\n");
}

TEST_F(FaultyConnectionTest, AWrongNumberIsNotLeftForAnotherConnectionsAnswer) {
  Send("SIM:NEXT NUMBER;ECHO? 1\n");
  EXPECT_EQ(Collected(), "1\n");
  EXPECT_FALSE(m_device->Faults().Take(AnswerFault::Number));
}

TEST_F(FaultyConnectionTest, IsSlowToTakeItsFirstInput) {
  Send("SIM:ACC 0.2\n");
  Connect();
  Send("*ESE 5\n*ESE?\n");
  EXPECT_FALSE(m_connection->AcceptsInput());
  EXPECT_FALSE(m_connection->Finished(true));
  ASSERT_EQ(m_connection->NextEvent(), m_now + milliseconds(200));
  m_now += milliseconds(199);
  EXPECT_EQ(Collected(), "");
  m_now += milliseconds(1);
  EXPECT_EQ(Collected(), "5\n");
  EXPECT_TRUE(m_connection->AcceptsInput());
  Send("*SRE?\n");
  EXPECT_EQ(Collected(), "0\n");
  EXPECT_TRUE(m_connection->Finished(true));
}

} // namespace
} // namespace portico::simulator
