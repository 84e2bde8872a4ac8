#include "drivers/session/InstrumentSession.h"

#include "drivers/session/SessionFixture.h"
#include "platform/IInstrumentDriver.h"

#include <array>

namespace portico::test {
namespace {

using namespace drivers;

using testing::Each;
using testing::ElementsAre;

class InstrumentSessionTest : public SessionFixture {};

TEST_F(InstrumentSessionTest, EachCallHasOneDeadline) {
  const TimePoint start = clock.Now();
  transport.Piece("1");
  transport.Piece("2");
  transport.Piece("\n");
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_THAT(transport.deadlines, testing::SizeIs(5));
  EXPECT_THAT(transport.deadlines, Each(start + Timeout));
  clock.Advance(std::chrono::milliseconds(50));
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.deadlines.back(), clock.Now() + Timeout);
}

TEST_F(InstrumentSessionTest, ATextGoesOutInOnePieceWithItsLineFeed) {
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_TRUE(session.Write(std::string("a\0b\r", 4)).Succeeded());
  EXPECT_THAT(transport.written, ElementsAre("Q?\r\n", std::string("a\0b\r\n", 5)));
}

TEST_F(InstrumentSessionTest, ATerminatorInTwoPiecesIsTakenOffWhole) {
  transport.Piece("12\r");
  transport.Piece("\n34\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(count, 3);
  EXPECT_EQ(buffer, std::string("12\0~~~~~~~~~~~~~", 16));
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer.substr(0, 3), std::string("34\0", 3));
}

TEST_F(InstrumentSessionTest, NothingIsWrittenBehindTheCount) {
  transport.Piece("12\r\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer, std::string("12\0~~~~~~~~~~~~~", 16));
}

TEST_F(InstrumentSessionTest, ATerminatorBeyondTheBufferDoesNotCount) {
  transport.Piece("123\r");
  transport.Piece("\n");
  EXPECT_CALL(observer, AnswerFilledBuffer("TCPIP0::bench::5025::SOCKET", 3)).Times(1);
  EXPECT_TRUE(Read(4).Succeeded());
  EXPECT_EQ(count, 4);
  EXPECT_EQ(buffer, std::string("123\0", 4));
}

TEST_F(InstrumentSessionTest, TheTerminationInForceIsThatOfTheRead) {
  transport.Piece("1\r2\n");
  ASSERT_TRUE(session.Attributes().Set(TVSCPI_ATTR_TERMCHAR, 13).Succeeded());
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer.substr(0, 2), std::string("1\0", 2));
  ASSERT_TRUE(session.Attributes().Set(TVSCPI_ATTR_TERMCHAR, 10).Succeeded());
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer.substr(0, 2), std::string("2\0", 2));
}

TEST_F(InstrumentSessionTest, AnEmptyBufferIsRefusedWithoutReading) {
  transport.Piece("1\n");
  EXPECT_EQ(Read(0).Status, DriverStatus::InvalidBuffer);
  EXPECT_THAT(transport.deadlines, testing::SizeIs(1));
}

TEST_F(InstrumentSessionTest, RemembersItsLastFailure) {
  EXPECT_TRUE(session.LastFailure().Succeeded());
  session.RememberFailure({DriverStatus::ReadTimeout, "bench"});
  EXPECT_EQ(session.LastFailure().Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(session.LastFailure().Detail, "bench");
}

TEST(InstrumentSession, NeedsNoObserver) {
  ManualClock clock;
  ScriptedTransport::Record transport;
  InstrumentSession session(ResourceName(SimulatedAddress{"dmm"}), std::make_unique<ScriptedTransport>(transport),
                            {clock});
  EXPECT_TRUE(session.Open().Succeeded());
  std::array<char, 4> buffer = {};
  std::int32_t count = 0;
  EXPECT_EQ(session.Read(buffer, count).Status, DriverStatus::ReadTimeout);
  EXPECT_TRUE(session.Write("A\r").Succeeded());
  EXPECT_EQ(transport.opened, 2);
  transport.stands = false;
  EXPECT_TRUE(session.Write("B\r").Succeeded());
  EXPECT_EQ(transport.opened, 3);
  EXPECT_EQ(session.Read(buffer, count).Status, DriverStatus::ReadTimeout);
  transport.clears = true;
  EXPECT_TRUE(session.Write("C\r").Succeeded());
  EXPECT_EQ(transport.opened, 3);
}

} // namespace
} // namespace portico::test
