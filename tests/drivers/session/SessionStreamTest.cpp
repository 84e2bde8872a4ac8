#include "drivers/session/SessionFixture.h"

namespace portico::test {
namespace {

using namespace drivers;

using testing::ElementsAre;
using testing::IsEmpty;

/// Answers that are read in pieces.
class SessionStreamTest : public SessionFixture {
protected:
  static constexpr auto Name = "TCPIP0::bench::5025::SOCKET";

  DriverResult Stream() {
    data.clear();
    return session.ReadInPieces([this](std::string_view piece) {
      data += piece;
      EXPECT_FALSE(piece.empty());
      ++pieces;
      return data.size() < enough;
    });
  }
  /// All that comes, of a read that succeeds.
  std::string Streamed() {
    const DriverResult result = Stream();
    EXPECT_TRUE(result.Succeeded()) << result.Detail;
    return data;
  }

  std::string data;
  std::size_t enough = 1'000'000'000;
  int pieces = 0;
};

TEST_F(SessionStreamTest, TheTerminatorIsNoPartOfTheData) {
  for (const char* answer : {"1.5\n", "1.5\r\n"}) {
    transport.Piece(answer);
    EXPECT_EQ(Streamed(), "1.5") << answer;
  }
  transport.Piece("\n");
  EXPECT_EQ(Streamed(), "");
}

TEST_F(SessionStreamTest, ATerminatorMayComeInPieces) {
  transport.Piece("12");
  transport.Piece("3\r");
  transport.Piece("\n");
  EXPECT_EQ(Streamed(), "123");
  transport.Piece("4");
  transport.Piece("\r");
  transport.Piece("5");
  transport.Piece("\n");
  EXPECT_EQ(Streamed(), "4\r5");
}

TEST_F(SessionStreamTest, ABlockIsPassedThroughByItsLength) {
  transport.Piece("#15a\n");
  transport.Piece("b\r\n");
  transport.Piece("\n");
  EXPECT_EQ(Streamed(), "#15a\nb\r\n");
}

TEST_F(SessionStreamTest, WhatStandsBehindTheEndIsTheNextAnswer) {
  transport.Piece("1\n2\n");
  EXPECT_EQ(Streamed(), "1");
  EXPECT_EQ(Streamed(), "2");
  transport.Piece("3\n4\n");
  EXPECT_EQ(Streamed(), "3");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer.substr(0, 2), std::string("4\0", 2));
}

TEST_F(SessionStreamTest, AMarkEndsAnAnswerThatHoldsLineFeeds) {
  transport.marksEnd = true;
  transport.Piece("#0a\nb");
  transport.Piece("c\r\n");
  transport.Piece("", true);
  EXPECT_EQ(Streamed(), "#0a\nbc");
  transport.Piece("no line end", true);
  EXPECT_EQ(Streamed(), "no line end");
}

TEST_F(SessionStreamTest, EachPieceHasTheTimeout) {
  transport.Piece("1");
  transport.Piece("2\n");
  transport.deadlines.clear();
  const auto start = clock.Now();
  session.ReadInPieces([](std::string_view) { return true; });
  EXPECT_THAT(transport.deadlines, ElementsAre(start + Timeout, start + Timeout));
  transport.Piece("345");
  transport.Piece("6\n");
  transport.deadlines.clear();
  session.ReadInPieces([this](std::string_view) {
    clock.Advance(std::chrono::milliseconds(400)); // what takes a piece may take its time
    return true;
  });
  EXPECT_THAT(transport.deadlines, ElementsAre(start + Timeout, start + Timeout + std::chrono::milliseconds(400)));
}

TEST_F(SessionStreamTest, AnAnswerThatIsGivenUpIsClearedAtOnce) {
  transport.clears = true;
  transport.Piece("12345678");
  transport.Piece("never asked for\n");
  enough = 1;
  EXPECT_CALL(observer, Cleared(Name)).Times(1);
  const DriverResult result = Stream();
  EXPECT_EQ(result.Status, DriverStatus::GivenUp);
  EXPECT_EQ(result.Detail, Name);
  EXPECT_THAT(transport.clearings, ElementsAre(Timeout));
  transport.reads.clear(); // the device clear has dropped it
  transport.bytes.clear();
  transport.Piece("1\n");
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.clearings.size(), 1U);
  enough = 1'000;
  EXPECT_EQ(Streamed(), "1");
}

TEST_F(SessionStreamTest, WithoutAWayToClearItCostsTheConnection) {
  transport.Piece("12345678");
  enough = 1;
  EXPECT_EQ(Stream().Status, DriverStatus::GivenUp);
  EXPECT_EQ(transport.closed, 1);
  EXPECT_EQ(Read().Status, DriverStatus::NotConnected) << "the rest is nobody's answer";
  EXPECT_CALL(observer, Reconnected(Name)).Times(1);
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_EQ(transport.opened, 2);
}

TEST_F(SessionStreamTest, ARefusalOfTheLastPieceCostsNothing) {
  transport.Piece("1234\n");
  enough = 1;
  EXPECT_EQ(Stream().Status, DriverStatus::GivenUp);
  EXPECT_EQ(transport.closed, 0);
  EXPECT_THAT(transport.clearings, IsEmpty());
}

TEST_F(SessionStreamTest, NothingIsHandedOnBehindARefusal) {
  transport.Piece("1234");
  transport.Piece("5678\n");
  enough = 1;
  Stream();
  EXPECT_EQ(pieces, 1);
}

TEST_F(SessionStreamTest, ATornAnswerIsClearedAtOnce) {
  transport.clears = true;
  transport.Piece("#41000abc");
  EXPECT_CALL(observer, Cleared(Name)).Times(1);
  EXPECT_EQ(Stream().Status, DriverStatus::ReadTimeout);
  EXPECT_THAT(transport.clearings, ElementsAre(Timeout));
}

TEST_F(SessionStreamTest, AnAnswerThatHasNotBegunIsStillAwaited) {
  EXPECT_EQ(Stream().Status, DriverStatus::ReadTimeout);
  EXPECT_THAT(transport.clearings, IsEmpty());
  EXPECT_EQ(transport.closed, 0);
  EXPECT_EQ(Stream().Status, DriverStatus::NotPossible) << "it would be taken for another's";
  transport.Piece("late\n");
  EXPECT_TRUE(Read().Succeeded());
  EXPECT_EQ(buffer.substr(0, 4), "late");
}

TEST_F(SessionStreamTest, AConnectionThatEndsIsToldAsEver) {
  transport.Piece("#41000abc");
  transport.Fails(DriverStatus::ConnectionClosed);
  EXPECT_EQ(Stream().Status, DriverStatus::ConnectionClosed);
  EXPECT_EQ(transport.closed, 1);
  EXPECT_EQ(Stream().Status, DriverStatus::NotConnected);
}

TEST_F(SessionStreamTest, AnAnswerThatBeginsAnewIsTornOnceItHasBegun) {
  transport.marksEnd = true;
  transport.Piece("old", false, true); // nothing has come before it
  transport.Piece("er");
  transport.Piece("new", true, true);
  EXPECT_EQ(Stream().Status, DriverStatus::ConnectionLost);
  EXPECT_EQ(data.find("new"), std::string::npos);
}

TEST_F(SessionStreamTest, OnceTheProgramEndsNothingIsClearedAnyMore) {
  transport.clears = true;
  transport.Piece("12345678");
  EXPECT_EQ(session
                .ReadInPieces([this](std::string_view) {
                  cancellation.Request();
                  return false;
                })
                .Status,
            DriverStatus::GivenUp);
  EXPECT_THAT(transport.clearings, IsEmpty());
}

} // namespace
} // namespace portico::test
