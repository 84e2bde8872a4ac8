#include "drivers/session/SessionFixture.h"
#include "platform/IInstrumentDriver.h"

namespace portico::test {
namespace {

using namespace drivers;

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class SessionRecoveryTest : public SessionFixture {
protected:
  void TimeOut(std::size_t size = 16) {
    transport.Fails(DriverStatus::ReadTimeout);
    EXPECT_EQ(Read(size).Status, DriverStatus::ReadTimeout);
  }
  std::string Data() const { return buffer.substr(0, static_cast<std::size_t>(count) - 1); }

  static constexpr auto Name = "TCPIP0::bench::5025::SOCKET";
};

TEST_F(SessionRecoveryTest, AReadThatTimesOutKeepsTheConnection) {
  TimeOut();
  EXPECT_EQ(transport.closed, 0);
  EXPECT_THAT(transport.clearings, IsEmpty());
}

TEST_F(SessionRecoveryTest, TheNextReadGoesOnFromTheFirstByte) {
  transport.Piece("12");
  TimeOut(4);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(buffer, std::string("\0\0~~", 4));
  transport.Piece("3");
  TimeOut();
  transport.Piece("4\n5\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "1234");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "5");
}

TEST_F(SessionRecoveryTest, AnAnswerThatCameAfterAllPutsTheSessionInStepAgain) {
  TimeOut();
  transport.Piece("1\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_THAT(transport.clearings, IsEmpty());
  EXPECT_EQ(transport.opened, 1);
}

TEST_F(SessionRecoveryTest, ABlockThatStoodStillIsReadWhole) {
  transport.Piece("#15a\n");
  TimeOut();
  transport.Piece("b\nc\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "#15a\nb\nc");
}

TEST_F(SessionRecoveryTest, TheTerminationInForceIsThatOfTheLastRead) {
  ASSERT_TRUE(session.Attributes().Set(TVSCPI_ATTR_TERMCHAR, 13).Succeeded());
  transport.Piece("1\n2\n");
  TimeOut();
  ASSERT_TRUE(session.Attributes().Set(TVSCPI_ATTR_TERMCHAR, 10).Succeeded());
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "1");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "2");
}

TEST_F(SessionRecoveryTest, NoMoreOfAnAnswerIsKeptThanTheBufferHolds) {
  transport.Piece("#2201234567\n");
  TimeOut(4);
  transport.Piece("\n\n\n\n\n\n\n\n\n\n\n\n");
  TimeOut();
  transport.Piece("1\n2\n");
  EXPECT_CALL(observer, AnswerFilledBuffer(Name, 25)).Times(1);
  EXPECT_TRUE(Read(3).Succeeded());
  EXPECT_EQ(buffer, std::string("#2\0", 3));
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "2");
}

TEST_F(SessionRecoveryTest, NoByteFollowsBehindAGap) {
  transport.Piece("12345");
  TimeOut(4);
  transport.Piece("678\n");
  EXPECT_CALL(observer, AnswerFilledBuffer(Name, 8)).Times(1);
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(count, 4);
  EXPECT_EQ(buffer.substr(0, 5), std::string("123\0~", 5));
}

TEST_F(SessionRecoveryTest, TheNextWriteClearsFirstAndDropsWhatHadCome) {
  transport.clears = true;
  transport.Piece("12");
  TimeOut();
  const TimePoint before = clock.Now();
  EXPECT_CALL(observer, Cleared(Name)).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_THAT(transport.clearings, ElementsAre(Timeout));
  EXPECT_EQ(transport.opened, 1);
  EXPECT_EQ(transport.closed, 0);
  EXPECT_EQ(transport.deadlines.back(), before + Timeout);
  transport.Piece("3\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "3");
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_THAT(transport.clearings, SizeIs(1));
}

TEST_F(SessionRecoveryTest, ClearingHasATimeOfItsOwn) {
  transport.clears = true;
  transport.onClear = [this] { clock.Advance(Timeout); };
  TimeOut();
  EXPECT_CALL(observer, Cleared).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + Timeout);
}

TEST_F(SessionRecoveryTest, WithoutAWayToClearTheNextWriteMakesAFreshConnection) {
  transport.Piece("12");
  TimeOut();
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.closed, 1);
  EXPECT_EQ(transport.opened, 2);
  transport.Piece("3\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "3");
}

TEST_F(SessionRecoveryTest, AConnectionThatTheInstrumentEndedIsMadeAnewBeforeTheCommand) {
  transport.Piece("1\n2\n3");
  EXPECT_TRUE(Read().Succeeded());
  transport.stands = false;
  EXPECT_CALL(observer, Restored(Name)).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.opened, 2);
  EXPECT_EQ(transport.closed, 0) << "what came before stays to be read";
  EXPECT_THAT(transport.written, ElementsAre("Q?\r\n"));
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "2");
  transport.Piece("4\n", false, true);
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "4") << "the answer that broke off with the connection";
}

TEST_F(SessionRecoveryTest, AnInstrumentThatCannotBeReachedAgainGetsNoCommand) {
  transport.Piece("1\nstale\n");
  EXPECT_TRUE(Read().Succeeded());
  transport.stands = false;
  transport.openResult = {DriverStatus::ConnectionRefused, "bench"};
  EXPECT_EQ(session.Write("Q?\r").Status, DriverStatus::ConnectionRefused);
  EXPECT_THAT(transport.written, IsEmpty());
  EXPECT_EQ(transport.closed, 1);
  const DriverResult missing = Read();
  EXPECT_EQ(missing.Status, DriverStatus::NotConnected);
  EXPECT_EQ(missing.Detail, "bench, refused it");
}

TEST_F(SessionRecoveryTest, OutOfStepNobodyLooksWhetherTheConnectionStands) {
  TimeOut();
  transport.stands = false;
  EXPECT_CALL(observer, Reconnected).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.opened, 2);
}

TEST_F(SessionRecoveryTest, AnyOtherFailureOfAReadClosesAtOnceAndErasesWhatItWrote) {
  for (const DriverStatus status : {DriverStatus::ConnectionClosed, DriverStatus::ConnectionLost,
                                    DriverStatus::ProtocolError, DriverStatus::Cancelled}) {
    transport.closed = 0;
    transport.Piece("12");
    transport.Fails(status);
    EXPECT_EQ(Read(4).Status, status);
    EXPECT_EQ(transport.closed, 1);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(buffer, std::string("\0\0~~", 4));
    EXPECT_EQ(Read().Status, DriverStatus::NotConnected);
    EXPECT_CALL(observer, Reconnected).Times(1);
    EXPECT_TRUE(session.Write("A\r").Succeeded());
  }
}

TEST_F(SessionRecoveryTest, AFreshConnectionAfterAFailureIsClearedToo) {
  transport.onClear = [this] { clock.Advance(Timeout); };
  transport.writeResult = {DriverStatus::WriteTimeout};
  EXPECT_EQ(session.Write("A\r").Status, DriverStatus::WriteTimeout);
  EXPECT_THAT(transport.clearings, IsEmpty());
  transport.openResult = {DriverStatus::ConnectionRefused};
  EXPECT_EQ(session.Write("B\r").Status, DriverStatus::ConnectionRefused);
  EXPECT_THAT(transport.clearings, IsEmpty());
  transport.openResult = {};
  transport.writeResult = {};
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("C\r").Succeeded());
  EXPECT_THAT(transport.clearings, ElementsAre(Timeout));
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + Timeout);
  EXPECT_TRUE(session.Write("D\r").Succeeded());
  EXPECT_THAT(transport.clearings, SizeIs(1));
}

TEST_F(SessionRecoveryTest, AFreshConnectionThatClearingCostIsMadeOnceMore) {
  transport.onClear = [this] {
    clock.Advance(Timeout);
    transport.stands = false;
  };
  transport.writeResult = {DriverStatus::WriteTimeout};
  EXPECT_EQ(session.Write("A\r").Status, DriverStatus::WriteTimeout);
  transport.writeResult = {};
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("B\r").Succeeded());
  EXPECT_EQ(transport.opened, 3);
  EXPECT_THAT(transport.clearings, SizeIs(1));
  EXPECT_EQ(transport.written.back(), "B\r\n");
}

TEST_F(SessionRecoveryTest, AConnectionThatClearingCostAndThatIsRefusedThenIsToldAsRefused) {
  transport.onClear = [this] {
    transport.stands = false;
    transport.openResult = {DriverStatus::ConnectionRefused};
  };
  transport.writeResult = {DriverStatus::WriteTimeout};
  EXPECT_EQ(session.Write("A\r").Status, DriverStatus::WriteTimeout);
  EXPECT_CALL(observer, Reconnected).Times(0);
  EXPECT_EQ(session.Write("B\r").Status, DriverStatus::ConnectionRefused);
  EXPECT_EQ(Read().Status, DriverStatus::NotConnected);
}

TEST_F(SessionRecoveryTest, AFreshConnectionBecauseClearingFailedIsClearedToo) {
  TimeOut();
  transport.onClear = [this] {
    clock.Advance(Timeout);
    transport.clears = transport.opened == 2;
  };
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_THAT(transport.clearings, ElementsAre(Timeout, Timeout));
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + Timeout);
  EXPECT_EQ(transport.opened, 2);
}

TEST_F(SessionRecoveryTest, AnInstrumentThatCouldNotBeClearedIsClearedOnceItIsReachedAgain) {
  TimeOut();
  transport.openResult = {DriverStatus::ConnectionRefused};
  EXPECT_EQ(session.Write("A\r").Status, DriverStatus::ConnectionRefused);
  EXPECT_THAT(transport.clearings, SizeIs(1));
  transport.openResult = {};
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("B\r").Succeeded());
  EXPECT_THAT(transport.clearings, SizeIs(2));
  EXPECT_THAT(transport.written, ElementsAre("B\r\n"));
}

TEST_F(SessionRecoveryTest, ACommandWhoseClearingWasGivenUpIsNotSent) {
  TimeOut();
  transport.onClear = [this] { cancellation.Request(); };
  EXPECT_EQ(session.Write("Q?\r").Status, DriverStatus::Cancelled);
  EXPECT_EQ(transport.opened, 1);
  EXPECT_THAT(transport.written, IsEmpty());
}

TEST_F(SessionRecoveryTest, NorIsOneWhoseFreshConnectionWasToBeCleared) {
  transport.Fails(DriverStatus::ConnectionLost);
  EXPECT_EQ(Read().Status, DriverStatus::ConnectionLost);
  transport.onClear = [this] { cancellation.Request(); };
  EXPECT_EQ(session.Write("Q?\r").Status, DriverStatus::Cancelled);
  EXPECT_THAT(transport.written, IsEmpty());
}

TEST_F(SessionRecoveryTest, AFailedWriteClosesAtOnceAndTheNextReconnects) {
  transport.Piece("1\nstale");
  EXPECT_TRUE(Read().Succeeded());
  transport.writeResult = {DriverStatus::WriteTimeout};
  EXPECT_EQ(session.Write("A\r").Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(transport.closed, 1);
  EXPECT_EQ(Read().Status, DriverStatus::NotConnected);
  transport.writeResult = {};
  transport.Piece("2\n");
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("B\r").Succeeded());
  EXPECT_EQ(transport.opened, 2);
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(Data(), "2");
}

TEST_F(SessionRecoveryTest, WhileReconnectingFailsWritesAndReadsFailAndNothingIsSent) {
  TimeOut();
  transport.openResult = {DriverStatus::ConnectionRefused, "bench"};
  EXPECT_EQ(session.Write("A\r").Status, DriverStatus::ConnectionRefused);
  const DriverResult missing = Read();
  EXPECT_EQ(missing.Status, DriverStatus::NotConnected);
  EXPECT_EQ(missing.Detail, "bench, refused it");
  transport.openResult = {DriverStatus::ConnectFailed, "bench, No route to host"};
  EXPECT_EQ(session.Write("B\r").Status, DriverStatus::ConnectFailed);
  EXPECT_EQ(Read().Detail, "bench, No route to host");
  EXPECT_THAT(transport.written, IsEmpty());
  transport.openResult = {};
  EXPECT_CALL(observer, Reconnected).Times(1);
  EXPECT_TRUE(session.Write("C\r").Succeeded());
  EXPECT_THAT(transport.written, ElementsAre("C\r\n"));
}

TEST_F(SessionRecoveryTest, ClosingGivesLocalControlBack) {
  session.Close();
  EXPECT_THAT(transport.returns, ElementsAre(clock.Now() + Timeout));
  EXPECT_EQ(transport.closed, 1);
}

TEST_F(SessionRecoveryTest, ClosingOutOfStepGivesLocalControlBackAndClearsNothing) {
  transport.clears = true;
  TimeOut();
  session.Close();
  EXPECT_THAT(transport.returns, SizeIs(1));
  EXPECT_THAT(transport.clearings, IsEmpty());
}

TEST_F(SessionRecoveryTest, WithoutAConnectionThereIsNobodyToGiveItBackTo) {
  transport.Fails(DriverStatus::ConnectionLost);
  EXPECT_EQ(Read().Status, DriverStatus::ConnectionLost);
  session.Close();
  EXPECT_THAT(transport.returns, IsEmpty());
}

TEST_F(SessionRecoveryTest, OnceTheProgramIsToEndClosingWaitsForNothing) {
  cancellation.Request();
  session.Close();
  EXPECT_THAT(transport.returns, IsEmpty());
  EXPECT_EQ(transport.closed, 1);
}

} // namespace
} // namespace portico::test
