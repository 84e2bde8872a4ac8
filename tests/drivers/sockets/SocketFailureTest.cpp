#include "drivers/MockObserver.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/doubles/ScriptedServer.h"

#include <array>
#include <gmock/gmock.h>

namespace portico::test {
namespace {

using namespace drivers;

/// The driver against an instrument on a socket that misbehaves.
class SocketFailureTest : public testing::Test {
protected:
  static constexpr auto Brief = std::chrono::milliseconds(250);

  void SetUp() override { ASSERT_EQ(driver.TVSCPI_init(server.ResourceName(), 0, 0, session), 0); }

  // However busy the machine is, a read begins when the server has said what it will.
  std::int32_t Write(const std::string& command) {
    const std::int32_t status = driver.TVSCPI_WriteInstrData(session, command + "\r");
    if (status != 0) return status;
    written += command + "\r\n";
    server.WaitForReceived(written);
    server.WaitForSilence();
    return status;
  }
  void Send(const std::string& bytes) {
    server.Send(bytes);
    server.WaitForSilence();
  }
  std::int32_t Read() { return driver.TVSCPI_ReadInstrData(session, 64, buffer.data(), count); }
  std::string Query(const std::string& command) {
    EXPECT_EQ(Write(command), 0);
    EXPECT_EQ(Read(), 0);
    return buffer.data();
  }
  std::string Message(std::int32_t status) {
    std::array<char, ErrorMessageBufferSize> text = {};
    EXPECT_EQ(driver.TVSCPI_error_message(session, status, text.data()), 0);
    return text.data();
  }
  std::string Peer() const { return "127.0.0.1, port " + std::to_string(server.Port()); }

  ScriptedServer server{{{"Q?", Reaction::Answer("1\n")}}};
  SteadyClock clock;
  testing::NiceMock<MockObserver> observer;
  InstrumentDriver driver{StandardTransports({}, clock), {clock, Brief, &observer}};
  std::string written;
  std::int32_t session = 0;
  std::array<char, 64> buffer = {};
  std::int32_t count = 0;
};

TEST_F(SocketFailureTest, AnInstrumentThatClosesIsReportedAndReconnected) {
  server.On("BYE?", Reaction::Close());
  EXPECT_EQ(Write("BYE?"), 0);
  EXPECT_EQ(Read(), Number(DriverStatus::ConnectionClosed));
  EXPECT_EQ(Message(Number(DriverStatus::ConnectionClosed)), "The instrument closed the connection: " + Peer() + ".\n");
  EXPECT_EQ(Read(), Number(DriverStatus::NotConnected));
  EXPECT_EQ(Message(Number(DriverStatus::NotConnected)), "There is no connection: " + Peer() + ", closed it.\n");
  EXPECT_CALL(observer, Reconnected("TCPIP0::127.0.0.1::" + std::to_string(server.Port()) + "::SOCKET")).Times(1);
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(server.Connections(), 2u);
}

TEST_F(SocketFailureTest, AnInstrumentThatClosesAmidAnAnswerHasNotAnswered) {
  server.On("HALF?", Reaction::Close("1.2"));
  EXPECT_EQ(Write("HALF?"), 0);
  EXPECT_EQ(Read(), Number(DriverStatus::ConnectionClosed));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_F(SocketFailureTest, AnAnswerBeforeTheCloseIsStillRead) {
  server.On("LAST?", Reaction::Close("42\n"));
  EXPECT_EQ(Query("LAST?"), "42");
  EXPECT_EQ(Read(), Number(DriverStatus::ConnectionClosed));
}

TEST_F(SocketFailureTest, ALateAnswerIsNeverThatOfTheNextQuery) {
  EXPECT_EQ(Write("SLOW?"), 0);
  EXPECT_EQ(Read(), Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(Message(Number(DriverStatus::ReadTimeout)),
            "Timeout expired before the answer was complete: " + Peer() + ".\n");
  Send("late\n");
  // The old connection goes before the next command, and with it what the instrument says there.
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(server.Connections(), 2u);
}

TEST_F(SocketFailureTest, ASlowAnswerIsThereForTheNextRead) {
  EXPECT_EQ(Write("SLOW?"), 0);
  EXPECT_EQ(Read(), Number(DriverStatus::ReadTimeout));
  Send("late\n");
  EXPECT_EQ(Read(), 0);
  EXPECT_STREQ(buffer.data(), "late");
  EXPECT_EQ(server.Connections(), 1u);
}

TEST_F(SocketFailureTest, AnAnswerWithoutEndIsGivenUp) {
  server.On("ENDLESS?", Reaction::Endless("1234567890,"));
  EXPECT_EQ(Write("ENDLESS?"), 0);
  EXPECT_EQ(Read(), Number(DriverStatus::ReadTimeout));
  EXPECT_EQ(count, 0);
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_F(SocketFailureTest, GarbageIsAnAnswer) {
  std::string garbage = "\"#'\x01\xFF#5#,'";
  server.On("GARBAGE?", Reaction::Answer(garbage + "\n"));
  EXPECT_EQ(Query("GARBAGE?"), garbage);
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(server.Connections(), 1u);
}

TEST_F(SocketFailureTest, WhileReconnectingFailsEveryCallFailsAtOnce) {
  EXPECT_EQ(Read(), Number(DriverStatus::ReadTimeout));
  server.StopListening();
  EXPECT_CALL(observer, Reconnected).Times(0);
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_EQ(Write("Q?"), Number(DriverStatus::ConnectionRefused));
    EXPECT_EQ(Message(Number(DriverStatus::ConnectionRefused)),
              "The instrument refused the connection: " + Peer() +
                  "; check the port, and that the instrument serves it.\n");
    EXPECT_EQ(Read(), Number(DriverStatus::NotConnected));
    EXPECT_EQ(Message(Number(DriverStatus::NotConnected)), "There is no connection: " + Peer() + ", refused it.\n");
  }
  EXPECT_EQ(server.Received(), "");
}

TEST_F(SocketFailureTest, AnInstrumentThatWasSwitchedOffFailsOnceAndThenServesAgain) {
  EXPECT_EQ(Query("Q?"), "1");
  server.DropClients();
  EXPECT_EQ(Read(), Number(DriverStatus::ConnectionClosed));
  EXPECT_EQ(Query("Q?"), "1");
}

TEST_F(SocketFailureTest, ACommandIsNotLostToAConnectionThatHadEnded) {
  EXPECT_EQ(Query("Q?"), "1");
  server.DropClients();
  EXPECT_CALL(observer, Restored("TCPIP0::127.0.0.1::" + std::to_string(server.Port()) + "::SOCKET")).Times(1);
  EXPECT_CALL(observer, Reconnected).Times(0);
  EXPECT_EQ(Query("Q?"), "1");
  EXPECT_EQ(server.Connections(), 2u);
}

TEST_F(SocketFailureTest, AnAnswerBeforeTheEndIsReadThoughACommandFollows) {
  server.On("LAST?", Reaction::Close("42\n4"));
  EXPECT_EQ(Write("LAST?"), 0);
  server.WaitForNoClient();
  EXPECT_EQ(Query("Q?"), "42");
  EXPECT_EQ(Read(), 0);
  EXPECT_STREQ(buffer.data(), "1") << "the answer that broke off is none";
  EXPECT_EQ(server.Connections(), 2u);
}

TEST_F(SocketFailureTest, AnUnaskedMessageIsReadFirst) {
  Send("hello\n");
  EXPECT_EQ(Read(), 0);
  EXPECT_STREQ(buffer.data(), "hello");
}

TEST_F(SocketFailureTest, OneSessionsFailureLeavesAnotherAlone) {
  std::int32_t other = 0;
  ASSERT_EQ(driver.TVSCPI_init(server.ResourceName(), 0, 0, other), 0);
  EXPECT_EQ(Read(), Number(DriverStatus::ReadTimeout));
  session = other;
  EXPECT_CALL(observer, Reconnected).Times(0);
  EXPECT_EQ(Query("Q?"), "1");
}

} // namespace
} // namespace portico::test
