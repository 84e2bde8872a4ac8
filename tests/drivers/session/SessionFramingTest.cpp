#include "drivers/session/SessionFixture.h"
#include "platform/IInstrumentDriver.h"

namespace portico::test {
namespace {

using namespace drivers;

/// A session over a transport that marks the ends of messages.
class SessionFramingTest : public SessionFixture {
protected:
  SessionFramingTest() { transport.marksEnd = true; }

  void SetTermination(std::int32_t value) {
    ASSERT_TRUE(session.Attributes().Set(TVSCPI_ATTR_TERMCHAR, value).Succeeded());
  }
  /// The data of the next answer.
  std::string Next() {
    EXPECT_TRUE(Read(32).Succeeded());
    return buffer.substr(0, static_cast<std::size_t>(count) - 1);
  }
};

TEST_F(SessionFramingTest, TheMarkEndsAnAnswer) {
  transport.Piece("12");
  transport.Piece("34", true);
  transport.Piece("5\n", true);
  EXPECT_EQ(Next(), "1234");
  EXPECT_EQ(Next(), "5");
}

TEST_F(SessionFramingTest, WithAutoNothingButTheMarkDoes) {
  transport.Piece("1\n2\r\n");
  transport.Piece("3\n", true);
  EXPECT_EQ(Next(), "1\n2\r\n3");
}

TEST_F(SessionFramingTest, OneTerminatorInFrontOfTheMarkIsTakenOff) {
  transport.Piece("a\r\n", true);
  transport.Piece("b\n\n", true);
  transport.Piece("c\r", true);
  transport.Piece("\r\n", true);
  EXPECT_EQ(Next(), "a");
  EXPECT_EQ(Next(), "b\n");
  EXPECT_EQ(Next(), "c\r");
  EXPECT_EQ(Next(), "");
}

TEST_F(SessionFramingTest, ATerminatorThatComesInPiecesIsTakenOffToo) {
  transport.Piece("a\r");
  transport.Piece("\n");
  transport.Piece("", true);
  EXPECT_EQ(Next(), "a");
  EXPECT_EQ(buffer.substr(0, 3), std::string("a\0\n", 3));
}

TEST_F(SessionFramingTest, AnEmptyMessageIsAnEmptyAnswer) {
  transport.Piece("", true);
  transport.Piece("1\n", true);
  transport.Piece("", true);
  EXPECT_EQ(Next(), "");
  EXPECT_EQ(Next(), "1");
  EXPECT_EQ(Next(), "") << "the mark was there with the bytes before it";
}

TEST_F(SessionFramingTest, AnotherTermcharEndsAtItsTerminatorOrAtTheMarkWhicheverIsFirst) {
  SetTermination(13);
  transport.Piece("1\r2\n", true);
  transport.Piece("3\r", true);
  transport.Piece("4\r", true);
  EXPECT_EQ(Next(), "1");
  EXPECT_EQ(Next(), "2\n");
  EXPECT_EQ(Next(), "3");
  EXPECT_EQ(Next(), "4");
}

TEST_F(SessionFramingTest, AMarkThatComesAloneBehindATerminatorBelongsToThatMessage) {
  SetTermination(10);
  transport.Piece("1\n");
  transport.Piece("", true);
  transport.Piece("2\n");
  transport.Piece("3", true);
  transport.Piece("", true);
  EXPECT_EQ(Next(), "1");
  EXPECT_EQ(Next(), "2");
  EXPECT_EQ(Next(), "3") << "a mark behind bytes is that of a further message";
  EXPECT_EQ(Next(), "") << "this message has had its mark";
}

TEST_F(SessionFramingTest, TheMarkOfAMessageThatWasReadDoesNotEndTheWaitForTheNext) {
  SetTermination(10);
  transport.Piece("1\n");
  EXPECT_EQ(Next(), "1");
  transport.Piece("", true);
  transport.Fails(DriverStatus::ReadTimeout);
  EXPECT_EQ(Read().Status, DriverStatus::ReadTimeout);
}

TEST_F(SessionFramingTest, AMarkThatComesAloneEndsWhatATimeoutHadLeft) {
  transport.Piece("1\n2");
  transport.Fails(DriverStatus::ReadTimeout);
  EXPECT_EQ(Read().Status, DriverStatus::ReadTimeout);
  SetTermination(10);
  transport.Piece("", true);
  EXPECT_EQ(Next(), "1");
  EXPECT_EQ(Next(), "2");
}

TEST_F(SessionFramingTest, BytesThatBeginAMessageGiveUpTheOneBefore) {
  transport.Piece("1,2,");
  transport.Piece("new\n", true, true);
  EXPECT_EQ(Next(), "new");
  EXPECT_EQ(buffer.substr(0, 4), std::string("new\0", 4));
}

TEST_F(SessionFramingTest, WhatIsGivenUpLeavesNoByteInTheBuffer) {
  transport.Piece("12345678");
  transport.Piece("n\n", true, true);
  EXPECT_EQ(Next(), "n");
  EXPECT_EQ(buffer.substr(0, 10), std::string("n\0\0\0\0\0\0\0~~", 10));
}

TEST_F(SessionFramingTest, ACommandGoesOutWithItsLineFeedInOneMessage) {
  EXPECT_TRUE(session.Write("Q?\r").Succeeded());
  EXPECT_THAT(transport.written, testing::ElementsAre("Q?\r\n"));
}

} // namespace
} // namespace portico::test
