#include "drivers/vxi11/Vxi11Streams.h"

namespace portico::test {
namespace {

using namespace drivers;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// What a DeviceWrite of link 7 with all 5000 milliseconds before it says in front of the flags.
const std::string WriteHead = "\0\0\0\7\0\0\x13\x88\0\0\x09\xC4"s;
/// The arguments of a DeviceRead that asks for 64 KiB.
const std::string ReadArguments = "\0\0\0\7\0\1\0\0\0\0\x13\x88\0\0\x09\xC4\0\0\0\1\0\0\0\0"s;
/// Those of DeviceClear and DeviceLocal.
const std::string GenericArguments = "\0\0\0\7\0\0\0\0\0\0\x13\x88\0\0\x13\x88"s;
/// The results of a DeviceRead whose time is over, and of one that was aborted.
const std::string TimedOut = "\0\0\0\x0F\0\0\0\0\0\0\0\0"s;
const std::string Aborted = "\0\0\0\x17\0\0\0\0\0\0\0\0"s;
const std::string NoError = "\0\0\0\0"s;

std::string WriteCall(char xid, char flags, const std::string& data) {
  return CoreCall(xid, 11, WriteHead + "\0\0\0"s + flags + "\0\0\0"s + static_cast<char>(data.size()) + data);
}

TEST_F(Vxi11TransportTest, ACommandIsOneWriteWithItsEnd) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\x8"s));
  EXPECT_TRUE(transport->Write("*CLS;1\r\n", Deadline()).Succeeded());
  EXPECT_THAT(core.written, ElementsAre(WriteCall(2, 9, "*CLS;1\r\n")));
}

TEST_F(Vxi11TransportTest, ALongCommandGoesInPiecesWithTheEndOnTheLast) {
  Open("\0\0\0\4"s);
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4"s) + Reply(3, "\0\0\0\0\0\0\0\4"s) + Reply(4, "\0\0\0\0\0\0\0\4"s));
  EXPECT_TRUE(transport->Write("abcdefghij\r\n", Deadline()).Succeeded());
  EXPECT_THAT(core.written, ElementsAre(WriteCall(2, 1, "abcd"), WriteCall(3, 1, "efgh"), WriteCall(4, 9, "ij\r\n")));
}

TEST_F(Vxi11TransportTest, OfAPieceThatIsTakenInPartTheRestIsSentAgain) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4"s) + Reply(3, "\0\0\0\0\0\0\0\4"s));
  EXPECT_TRUE(transport->Write("abcdef\r\n", Deadline()).Succeeded());
  EXPECT_THAT(core.written, ElementsAre(WriteCall(2, 9, "abcdef\r\n"), WriteCall(3, 9, "ef\r\n")));
}

TEST_F(Vxi11TransportTest, WhereNoLongestPieceIsToldItHas1024Bytes) {
  Open("\0\0\0\0"s);
  core.Piece(Reply(2, "\0\0\0\0\0\0\4\0"s) + Reply(3, "\0\0\0\0\0\0\0\1"s));
  EXPECT_TRUE(transport->Write(std::string(1025, 'x'), Deadline()).Succeeded());
  EXPECT_THAT(core.written, SizeIs(2));
}

TEST_F(Vxi11TransportTest, ACountThatCannotBeBreaksTheProtocol) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\3"s));
  DriverResult result = transport->Write("\r\n", Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ProtocolError);
  EXPECT_EQ(result.Detail, "bench, port 1024, took 3 bytes of 2");
  core.Piece(Reply(3, "\0\0\0\0\0\0\0\0"s));
  result = transport->Write("\r\n", Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ProtocolError);
  EXPECT_EQ(result.Detail, "bench, port 1024, took 0 bytes of 2");
}

TEST_F(Vxi11TransportTest, AWriteThatFailsSaysWhy) {
  Open();
  EXPECT_EQ(transport->Write("\r\n", Deadline()).Status, DriverStatus::WriteTimeout);
  core.Piece(Reply(3, "\0\0\0\x0F\0\0\0\0"s));
  DriverResult result = transport->Write("\r\n", Deadline());
  EXPECT_EQ(result.Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(result.Detail, "bench, port 1024");
  core.Piece(Reply(4, "\0\0\0\x0B\0\0\0\0"s));
  result = transport->Write("\r\n", Deadline());
  EXPECT_EQ(result.Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(result.Detail, "bench, port 1024 (locked by another program; close the instrument there)");
  core.Piece(Reply(5, "\0\0\0\4\0\0\0\0"s));
  result = transport->Write("\r\n", Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ConnectionLost);
  EXPECT_EQ(result.Detail, "bench, port 1024, no longer knows the link");
  core.Piece(Record("nonsense"));
  result = transport->Write("\r\n", Deadline());
  EXPECT_EQ(result.Status, DriverStatus::ProtocolError);
  EXPECT_EQ(result.Detail, "bench, port 1024, sent what is no RPC reply");
}

TEST_F(Vxi11TransportTest, AnAnswerIsReadWithItsEnd) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4"s + "1.5\n"));
  EXPECT_EQ(Read(), "1.5\n");
  EXPECT_TRUE(received.End);
  EXPECT_THAT(core.written, ElementsAre(CoreCall(2, 12, ReadArguments)));
}

TEST_F(Vxi11TransportTest, TheNextAnswerIsReadWithItsOwn) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4"s + "1.5\n") + Reply(3, "\0\0\0\0\0\0\0\4\0\0\0\2"s + "2\n\0\0"s));
  EXPECT_EQ(Read(), "1.5\n");
  EXPECT_EQ(Read(), "2\n");
  EXPECT_TRUE(received.End);
}

TEST_F(Vxi11TransportTest, WithoutAnEndThereIsMoreToRead) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\0\0\0\0\2"s + "ab\0\0"s) + Reply(3, "\0\0\0\0\0\0\0\1\0\0\0\4cdef"s) +
             Reply(4, "\0\0\0\0\0\0\0\5\0\0\0\2gh\0\0"s));
  EXPECT_EQ(Read(), "ab");
  EXPECT_FALSE(received.End);
  EXPECT_EQ(Read(4), "cdef");
  EXPECT_FALSE(received.End);
  EXPECT_EQ(Read(2), "gh");
  EXPECT_TRUE(received.End);
  EXPECT_THAT(core.written, SizeIs(3));
  EXPECT_EQ(core.written[1].substr(48, 4), "\0\0\0\4"s);
}

TEST_F(Vxi11TransportTest, ATerminationCharacterThatTheServerLooksForEndsTheMessage) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\2\0\0\0\2a\n\0\0"s));
  EXPECT_EQ(Read(), "a\n");
  EXPECT_TRUE(received.End);
}

TEST_F(Vxi11TransportTest, AnEndMayComeWithoutBytes) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\0\0\0\0\0"s) + Reply(3, "\0\0\0\0\0\0\0\4\0\0\0\0"s));
  EXPECT_EQ(Read(), "");
  EXPECT_TRUE(received.End);
  EXPECT_THAT(core.written, SizeIs(2));
}

TEST_F(Vxi11TransportTest, WhatTheCallersBufferDoesNotHoldComesWithTheNextRead) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4abcd"s));
  EXPECT_EQ(Read(3), "abc");
  EXPECT_FALSE(received.End);
  EXPECT_EQ(Read(3), "d");
  EXPECT_TRUE(received.End);
  EXPECT_THAT(core.written, SizeIs(1));
}

TEST_F(Vxi11TransportTest, ALateReplyIsWaitedForByTheNextRead) {
  Open();
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4late"s));
  EXPECT_EQ(Read(), "late");
  EXPECT_TRUE(received.End);
  EXPECT_THAT(core.written, SizeIs(1));
}

TEST_F(Vxi11TransportTest, ATimeoutOfAnEarlierReadsCallStartsAnother) {
  Open();
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  core.Piece(Reply(2, TimedOut));
  core.Piece(Reply(3, "\0\0\0\0\0\0\0\4\0\0\0\4late"s));
  EXPECT_EQ(Read(), "late");
  EXPECT_THAT(core.written,
              ElementsAre(CoreCall(2, 12, ReadArguments.substr(0, 4) + "\0\0\0\x10"s + ReadArguments.substr(8)),
                          CoreCall(3, 12, ReadArguments)));
}

TEST_F(Vxi11TransportTest, ATimeoutInItsTimeStartsNoOther) {
  Open();
  core.Piece(Reply(2, TimedOut));
  char byte = 0;
  EXPECT_EQ(transport->Read(&byte, 1, clock.Now()).Result.Status, DriverStatus::ReadTimeout);
  EXPECT_THAT(core.written, SizeIs(1));
}

TEST_F(Vxi11TransportTest, WhatCameBeforeATimeoutIsNotLost) {
  Open();
  core.Piece(Reply(2, "\0\0\0\x0F\0\0\0\0\0\0\0\4half"s));
  EXPECT_EQ(Read(), "half");
  EXPECT_FALSE(received.End);
}

TEST_F(Vxi11TransportTest, ACallGetsTheTimeThatIsLeft) {
  Open();
  core.Piece(Reply(2, TimedOut));
  core.Piece(Reply(3, TimedOut));
  const TimePoint deadline = Deadline();
  clock.Advance(std::chrono::milliseconds(4000));
  char byte = 0;
  EXPECT_EQ(transport->Read(&byte, 1, deadline).Result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(core.written.at(0).substr(52, 8), "\0\0\x03\xE8\0\0\x01\xF4"s);
  clock.Advance(std::chrono::milliseconds(1000));
  EXPECT_EQ(transport->Write("x", deadline).Status, DriverStatus::WriteTimeout);
  EXPECT_EQ(core.written.back().substr(48, 8), "\0\0\0\1\0\0\0\0"s);
}

TEST_F(Vxi11TransportTest, AReadThatFailsSaysWhy) {
  Open();
  core.Piece(Reply(2, "\0\0\0\x0B\0\0\0\0\0\0\0\0"s));
  DriverResult result = FailedRead();
  EXPECT_EQ(result.Status, DriverStatus::ReadTimeout);
  EXPECT_EQ(result.Detail, "bench, port 1024 (locked by another program; close the instrument there)");
  EXPECT_EQ(ReasonFor(result),
            "bench, port 1024 (locked by another program; close the instrument there), gave no whole "
            "answer in time");
  core.Piece(Reply(3, "\0\0\0\x11\0\0\0\0\0\0\0\0"s));
  result = FailedRead();
  EXPECT_EQ(result.Status, DriverStatus::ConnectionLost);
  EXPECT_EQ(result.Detail, "bench, port 1024, had an error of its interface");
  core.Piece(Reply(4, "\0\0\0\0\0\0\0\4\0\0\0\5abcd"s));
  result = FailedRead();
  EXPECT_EQ(result.Status, DriverStatus::ProtocolError);
  EXPECT_EQ(result.Detail, "bench, port 1024, sent results that cannot be read");
  core.Fails(DriverStatus::ConnectionClosed);
  EXPECT_EQ(FailedRead().Status, DriverStatus::ConnectionClosed);
}

TEST_F(Vxi11TransportTest, ClearingIsACallOfItsOwn) {
  Open();
  core.Piece(Reply(2, NoError));
  EXPECT_TRUE(transport->Clear(std::chrono::seconds(5)));
  EXPECT_THAT(core.written, ElementsAre(CoreCall(2, 15, GenericArguments)));
}

TEST_F(Vxi11TransportTest, ClearingDropsWhatWasNotRead) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4abcd"s) + Reply(3, NoError) +
             Reply(4, "\0\0\0\0\0\0\0\4\0\0\0\1e\0\0\0"s));
  EXPECT_EQ(Read(1), "a");
  EXPECT_TRUE(transport->Clear(std::chrono::seconds(5)));
  EXPECT_EQ(Read(), "e");
}

TEST_F(Vxi11TransportTest, ClearingDropsTheReplyToAReadThatTimedOut) {
  Open();
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4late"s) + Reply(3, NoError) +
             Reply(4, "\0\0\0\0\0\0\0\4\0\0\0\3new\0"s));
  EXPECT_TRUE(transport->Clear(std::chrono::seconds(5)));
  EXPECT_EQ(Read(), "new");
  EXPECT_THAT(connections, SizeIs(1));
}

TEST_F(Vxi11TransportTest, ClearingAbortsAReadThatGetsNoReply) {
  Open();
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  core.Fails(DriverStatus::ReadTimeout);
  core.Piece(Reply(2, Aborted) + Reply(3, NoError));
  abort.Piece(Reply(1, NoError));
  const TimePoint now = clock.Now();
  core.deadlines.clear();
  EXPECT_TRUE(transport->Clear(std::chrono::seconds(4)));
  EXPECT_THAT(connections, ElementsAre("bench:1024", "bench:771"));
  EXPECT_THAT(abort.written, ElementsAre("\x80\0\0\x2C"
                                         "\0\0\0\1\0\0\0\0\0\0\0\2\x00\x06\x07\xB0\0\0\0\1\0\0\0\1"
                                         "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\7"s));
  EXPECT_THAT(abort.deadlines, testing::Each(now + std::chrono::seconds(4)));
  EXPECT_THAT(core.deadlines,
              ElementsAre(now + std::chrono::seconds(1), now + std::chrono::seconds(4), now + std::chrono::seconds(4)));
}

TEST_F(Vxi11TransportTest, ClearingFailsWhereTheAbortDoes) {
  Open();
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  abort.Piece(Reply(1, "\0\0\0\4"s));
  EXPECT_FALSE(transport->Clear(std::chrono::seconds(5)));
  abort.openResult = {DriverStatus::ConnectionRefused};
  EXPECT_FALSE(transport->Clear(std::chrono::seconds(5)));
  EXPECT_THAT(core.written, SizeIs(1));
}

TEST_F(Vxi11TransportTest, ClearingFailsWhereTheInstrumentCannot) {
  Open();
  EXPECT_FALSE(transport->Clear(std::chrono::seconds(5)));
  core.Piece(Reply(3, "\0\0\0\x8"s));
  EXPECT_FALSE(transport->Clear(std::chrono::seconds(5)));
}

TEST_F(Vxi11TransportTest, TheFrontPanelIsGivenBackWithTheLink) {
  Open();
  core.Piece(Reply(2, NoError) + Reply(3, NoError));
  transport->ReturnToLocal(Deadline());
  EXPECT_THAT(core.written, ElementsAre(CoreCall(2, 17, GenericArguments), CoreCall(3, 23, "\0\0\0\7"s)));
}

TEST_F(Vxi11TransportTest, GoingToLocalKeepsTheLink) {
  Open();
  core.Piece(Reply(2, NoError));
  EXPECT_TRUE(transport->GoToLocal(Deadline()).Succeeded());
  EXPECT_THAT(core.written, ElementsAre(CoreCall(2, 17, GenericArguments)));
  core.Piece(Reply(3, "\0\0\0\x8"s));
  EXPECT_EQ(transport->GoToLocal(Deadline()).Status, DriverStatus::NotPossible) << "the call is not supported";
  core.Piece(Reply(4, "\0\0\0\xB"s));
  EXPECT_EQ(transport->GoToLocal(Deadline()).Status, DriverStatus::WriteTimeout) << "locked by another link";
}

TEST_F(Vxi11TransportTest, AReadThatIsUnderWayEndsBeforeTheFrontPanelIsGivenBack) {
  Open();
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  core.Piece(Reply(2, TimedOut) + Reply(3, NoError) + Reply(4, NoError));
  transport->ReturnToLocal(Deadline());
  EXPECT_THAT(core.written, SizeIs(3));
}

TEST_F(Vxi11TransportTest, WithoutALinkThereIsNothingToGiveBack) {
  transport->ReturnToLocal(Deadline());
  EXPECT_THAT(connections, IsEmpty());
}

TEST_F(Vxi11TransportTest, OfWhatWasBeforeAnOpeningNothingIsLeft) {
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4late"s));
  EXPECT_EQ(Read(1), "l");
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\3new\0"s));
  EXPECT_EQ(Read(), "new");
  EXPECT_EQ(FailedRead().Status, DriverStatus::ReadTimeout);
  Open();
  core.Piece(Reply(2, "\0\0\0\0\0\0\0\4\0\0\0\4next"s));
  EXPECT_EQ(Read(), "next");
  EXPECT_THAT(core.written, ElementsAre(CoreCall(2, 12, ReadArguments)));
}

TEST_F(Vxi11TransportTest, ClosingSaysNothing) {
  Open();
  transport->Close();
  EXPECT_THAT(core.written, IsEmpty());
  EXPECT_FALSE(transport->Stands());
}

} // namespace
} // namespace portico::test
