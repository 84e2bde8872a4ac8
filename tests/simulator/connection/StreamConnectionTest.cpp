#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;
using test::Session;

TEST(StreamConnection, AnswersAreLines) {
  Session session;
  session.Send("*ESE?");
  EXPECT_EQ(session.Connection().Read(session.Now()), "0\n");
}

TEST(StreamConnection, TakesBytesInPiecesOfAnySize) {
  Session session;
  for (const char byte : std::string("DISP:TEXT \"a b\";TEXT?\r\n")) session.SendRaw(std::string(1, byte));
  EXPECT_EQ(session.Read(), "\"a b\"");
}

TEST(StreamConnection, AStringWithoutItsEndSpoilsItsOwnMessageOnly) {
  Session session;
  session.Send("DISP:TEXT \"never closed");
  EXPECT_EQ(session.Error(), "-151,\"Invalid string data\"");
  EXPECT_EQ(session.Ask("*ESE?"), "0");
}

TEST(StreamConnection, TakesSeveralMessagesAtOnce) {
  Session session;
  session.SendRaw("*ESE 3\n*ESE?\n*SRE?\n*ES");
  EXPECT_EQ(session.Read(), "3");
  EXPECT_EQ(session.Read(), "0");
  EXPECT_FALSE(session.Read());
  session.SendRaw("E?\n");
  EXPECT_EQ(session.Read(), "3");
}

TEST(StreamConnection, EmptyMessagesAreNothing) {
  Session session;
  session.SendRaw("\n\r\n ;\n");
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(StreamConnection, ATerminatorResetsThePath) {
  Session session;
  EXPECT_EQ(session.Ask("SYST:VERS?;VERS?"), "1999.0;1999.0");
  session.Send("VERS?");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
}

TEST(StreamConnection, UnreadAnswersAreKeptInTheirOrder) {
  Session session;
  session.Send("*ESE?");
  session.Send("SYST:VERS?");
  EXPECT_EQ(session.Read(), "0");
  EXPECT_EQ(session.Read(), "1999.0");
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(StreamConnection, AMessageOverTheLimitIsDiscarded) {
  Session session;
  const std::string text(Connection::LongestMessage, 'x');
  session.Send("DISP:TEXT \"" + text + "\"");
  EXPECT_EQ(session.Error(), "-363,\"Input buffer overrun\"");
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(StreamConnection, AMessageOfTheLimitIsCarriedOut) {
  Session session;
  std::string message = "*ESE?";
  message.resize(Connection::LongestMessage, ' ');
  EXPECT_EQ(session.Ask(message), "0");
}

TEST(StreamConnection, InputHeldByAnOperationIsBounded) {
  Session session;
  session.Send("SENS:VOLT:NPLC 100;:INIT;*WAI");
  const std::string filler(Connection::LongestMessage - 1, ' ');
  int sent = 0;
  for (; session.Connection().AcceptsInput(); ++sent) session.Send(filler);
  EXPECT_EQ(static_cast<std::size_t>(sent), Connection::MostInputBytes / 2 / Connection::LongestMessage);
  for (; static_cast<std::size_t>(sent) < Connection::MostInputBytes / Connection::LongestMessage + 2; ++sent) {
    session.Send(filler);
  }
  session.Advance(std::chrono::seconds(2));
  EXPECT_EQ(session.Error(), "-363,\"Input buffer overrun\"");
  EXPECT_TRUE(session.Connection().AcceptsInput());
}

TEST(StreamConnection, FullBuffersOnBothSidesAreADeadlock) {
  Session session;
  for (std::size_t i = 0; i < ResponseQueue::MostMessages; ++i) session.Send("*ESE?");
  const std::string filler(Connection::LongestMessage - 1, ' ');
  for (std::size_t i = 0; i < Connection::MostInputBytes / Connection::LongestMessage + 1; ++i) session.Send(filler);
  EXPECT_EQ(session.Read(), std::nullopt);
  EXPECT_EQ(session.Error(), "-430,\"Query DEADLOCKED\"");
  EXPECT_EQ(session.Ask("*ESR?"), "132");
}

TEST(StreamConnection, ManyQuestionsAtOnceAreAllAnswered) {
  Session session;
  std::string questions;
  constexpr int Count = 5000;
  for (int i = 0; i < Count; ++i) questions += "*ESE?\n";
  session.SendRaw(questions);
  int answers = 0;
  while (session.Read()) ++answers;
  EXPECT_EQ(answers, Count);
}

TEST(StreamConnection, NothingIsUnderWayAtFirst) {
  Session session;
  EXPECT_FALSE(session.Connection().Busy());
  EXPECT_FALSE(session.Connection().NextEvent());
  EXPECT_FALSE(session.Read());
  EXPECT_TRUE(session.Connection().AcceptsInput());
  EXPECT_FALSE(session.Connection().CloseRequested());
}

TEST(StreamConnection, AReadyAnswerIsNoEvent) {
  Session session;
  session.Send("*IDN?");
  EXPECT_FALSE(session.Connection().NextEvent());
}

TEST(StreamConnection, WriteFirstAdvancesToItsTime) {
  Session session;
  session.Send("INIT");
  session.Advance(milliseconds(20));
  EXPECT_EQ(session.Ask("STAT:OPER:COND?"), "0");
}

TEST(StreamConnection, AMarkEndsAMessageWithoutALineFeed) {
  Session session;
  session.SendRaw("*ESE 3;*ES");
  session.SendRaw("E?");
  EXPECT_FALSE(session.Read());
  session.Connection().End(session.Now());
  EXPECT_EQ(session.Read(), "3");
}

TEST(StreamConnection, AMarkBehindALineFeedIsNothing) {
  Session session;
  session.SendRaw("*ESE?\r\n");
  session.Connection().End(session.Now());
  EXPECT_EQ(session.Read(), "0");
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(StreamConnection, AMarkEndsABlockThatIsTooShort) {
  Session session;
  session.SendRaw("TRAC #3100short\n");
  session.Connection().End(session.Now());
  EXPECT_EQ(session.Error(), "-161,\"Invalid block data\"");
}

TEST(StreamConnection, AMarkEndsAMessageThatIsTooLong) {
  Session session;
  session.SendRaw("DISP:TEXT \"" + std::string(Connection::LongestMessage, 'x'));
  session.Connection().End(session.Now());
  EXPECT_EQ(session.Error(), "-363,\"Input buffer overrun\"");
  EXPECT_EQ(session.Ask("*ESE?"), "0");
}

TEST(StreamConnection, ClearingDropsWhatWasWrittenAndWhatWasNotRead) {
  Session session;
  session.Send("*ESE?");
  session.SendRaw("*ESE 3;*ES");
  session.Connection().Clear(session.Now());
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Ask("*ESE?"), "0");
  EXPECT_EQ(session.Error(), "0,\"No error\"");
}

TEST(StreamConnection, ClearingDropsTheRestOfAMessageThatIsHeld) {
  Session session;
  session.Send("INIT;*OPC?;*ESE 3");
  session.Send("*ESE 7");
  session.Connection().Clear(session.Now());
  EXPECT_EQ(session.Ask("*ESE?"), "0");
  session.Advance(milliseconds(20));
  EXPECT_FALSE(session.Read());
  EXPECT_EQ(session.Ask("*ESE?"), "0");
}

TEST(StreamConnection, ClearingEndsAnAnswerWithoutEnd) {
  Session session;
  session.Send("SIM:ENDL?");
  EXPECT_TRUE(session.Read());
  session.Connection().Clear(session.Now());
  EXPECT_EQ(session.Ask("*ESE?"), "0");
}

TEST(StreamConnection, ASerialPollTellsAReasonForServiceOnce) {
  Session session;
  session.Send("*SRE 4");
  session.Send("NONSENSE");
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 4 + 64);
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 4);
  EXPECT_EQ(session.Ask("*STB?"), "68");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 0);
  session.Send("NONSENSE");
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 4 + 64);
}

TEST(StreamConnection, AReasonThatIsGoneBetweenTwoPollsIsANewOne) {
  Session session;
  session.Send("*SRE 4");
  session.Send("NONSENSE");
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 4 + 64);
  session.Send("*CLS");
  session.Send("NONSENSE");
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 4 + 64);
}

TEST(StreamConnection, AnAnswerBehindADeviceClearIsANewReasonToo) {
  Session session;
  session.Send("*SRE 16");
  session.Send("*ESE?");
  EXPECT_EQ(session.Connection().SerialPoll(true, session.Now()), 16 + 64);
  session.Connection().Clear(session.Now());
  session.Send("*ESE?");
  EXPECT_EQ(session.Connection().SerialPoll(true, session.Now()), 16 + 64);
}

TEST(StreamConnection, EachAnswerIsANewReasonForService) {
  Session session;
  session.Send("*SRE 16");
  session.Send("*ESE?");
  EXPECT_TRUE(session.Connection().MessageAvailable());
  EXPECT_EQ(session.Connection().SerialPoll(true, session.Now()), 16 + 64);
  EXPECT_EQ(session.Connection().SerialPoll(true, session.Now()), 16);
  EXPECT_EQ(session.Read(), "0");
  session.Connection().AnswerTaken();
  EXPECT_FALSE(session.Connection().MessageAvailable());
  session.Send("*ESE?");
  EXPECT_EQ(session.Connection().SerialPoll(true, session.Now()), 16 + 64);
}

TEST(StreamConnection, EachClientIsToldOfAReasonForService) {
  Session session;
  Session other = session.Another();
  session.Send("*SRE 4;:NONSENSE");
  EXPECT_EQ(session.Connection().SerialPoll(false, session.Now()), 4 + 64);
  EXPECT_EQ(other.Connection().SerialPoll(false, other.Now()), 4 + 64);
}

TEST(StreamConnection, AReadWithNothingAskedMayBeReported) {
  Session session;
  session.Connection().ReportUnterminated();
  EXPECT_EQ(session.Error(), "-420,\"Query UNTERMINATED\"");
  EXPECT_EQ(session.Ask("*ESR?"), "132");
}

} // namespace
} // namespace portico::simulator
