#include "simulator/replay/ReplayedInstrument.h"

#include "simulator/Session.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace portico::simulator {
namespace {

using test::Session;
using Order = ReplayedInstrument::Order;
using Exchanges = std::initializer_list<std::pair<const char*, const char*>>;

const std::string NoError = "0,\"No error\"";

/// A client of a conversation in which each message has one answer, or none where it is empty.
Session Replay(const Exchanges& exchanges, Order order = Order::Free) {
  ReplayBook book;
  for (const auto& [message, answer] : exchanges) {
    book.Add(message);
    if (*answer != '\0') book.AddAnswer(answer);
  }
  return Session(std::make_unique<ReplayedInstrument>(std::move(book), order, 1));
}

TEST(ReplayedInstrument, AnswersAMessageAsAWhole) {
  auto session = Replay({{"*IDN?;VOLT?", "x;1"}, {"DATA #13a\nb;X?", "2"}, {"VOLT 1", ""}});
  EXPECT_EQ(session.Ask("*idn?;volt?"), "x;1");
  EXPECT_EQ(session.Ask("DATA #13a\nb;X?\r"), "2");
  EXPECT_EQ(session.Ask("VOLT 1"), "(none)");
  EXPECT_EQ(session.Error(), NoError);
}

TEST(ReplayedInstrument, SeveralAnswersAreMessagesOfTheirOwn) {
  ReplayBook book;
  book.Add("A?");
  book.AddAnswer("1");
  book.AddAnswer("");
  book.AddAnswer(std::string("#13\0\n\xFF", 6));
  Session session(std::make_unique<ReplayedInstrument>(std::move(book), Order::Free, 1));
  EXPECT_EQ(session.Ask("A?"), "1");
  EXPECT_EQ(session.Read(), "");
  EXPECT_EQ(session.Read(), std::string("#13\0\n\xFF", 6));
  EXPECT_EQ(session.Read(), std::nullopt);
}

TEST(ReplayedInstrument, WhatNeverOccurredIsAnUndefinedHeader) {
  auto session = Replay({{"A?", "1"}, {"SYST:ERR?", "7,\"recorded\""}});
  EXPECT_EQ(session.Ask("*IDN?"), "(none)");
  EXPECT_EQ(session.Ask("SIM:ECHO? 1"), "(none)");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
  EXPECT_EQ(session.Ask(":system:error:next?"), "-113,\"Undefined header\"");
  EXPECT_EQ(session.Error(), "7,\"recorded\"") << "then from the log";
}

TEST(ReplayedInstrument, AnErrorQueryThatNeverOccurredFindsNoError) {
  auto session = Replay({{"A?", "1"}});
  EXPECT_EQ(session.Error(), NoError);
  session.Send("B?");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
  EXPECT_EQ(session.Error(), NoError);
}

TEST(ReplayedInstrument, TheOwnQueueLeavesTheConversationWhereItIs) {
  auto session = Replay({{"A?", "1"}, {"SYST:ERR?", "1,\"one\""}, {"A?", "2"}, {"SYST:ERR?", "2,\"two\""}});
  session.Send("X");
  EXPECT_EQ(session.Ask("A?"), "1");
  EXPECT_EQ(session.Error(), "-113,\"Undefined header\"");
  EXPECT_EQ(session.Error(), "1,\"one\"");
  EXPECT_EQ(session.Ask("A?"), "2");
}

TEST(ReplayedInstrument, TheOrderIsFreeUnlessItIsDemanded) {
  const Exchanges exchanges = {{"A?", "1"}, {"B?", "2"}, {"C?", "3"}};
  auto session = Replay(exchanges);
  EXPECT_EQ(session.Ask("C?"), "3");
  EXPECT_EQ(session.Ask("A?"), "1");
  EXPECT_EQ(session.Error(), NoError);
}

TEST(ReplayedInstrument, AnOrderThatIsDemandedAndLeftIsAnExecutionError) {
  auto session = Replay({{"A?", "1"}, {"B?", "2"}, {"SYST:ERR?", "0"}, {"C?", "3"}, {"D?", "4"}}, Order::Demanded);
  EXPECT_EQ(session.Ask("A?"), "1");
  EXPECT_EQ(session.Error(), "0") << "which brings the conversation behind B?";
  EXPECT_EQ(session.Ask("D?"), "4") << "it is answered all the same";
  EXPECT_EQ(session.Error(), "-200,\"Execution error\"");
  EXPECT_EQ(session.Ask("B?"), "2");
  EXPECT_EQ(session.Error(), "-200,\"Execution error\"");
  EXPECT_EQ(session.Error(), "0");
}

TEST(ReplayedInstrument, AnOrderThatIsKeptIsNoError) {
  auto session = Replay({{"A?", "1"}, {"SYST:ERR?", "0"}, {"A?", "2"}, {"B?", "3"}}, Order::Demanded);
  EXPECT_EQ(session.Ask("A?"), "1");
  EXPECT_EQ(session.Ask("A?"), "2") << "an error query may be left out";
  EXPECT_EQ(session.Ask("B?"), "3");
  EXPECT_EQ(session.Error(), "0");
}

TEST(ReplayedInstrument, ClearingTheStatusEmptiesItsOwnQueue) {
  auto session = Replay({{"*CLS", ""}, {"A?", "1"}});
  session.Send("X");
  session.Send(" *cls ");
  EXPECT_EQ(session.Error(), NoError);
}

TEST(ReplayedInstrument, AnEmptyMessageIsNothing) {
  auto session = Replay({{"A?", "1"}});
  session.SendRaw("\n \r\n");
  EXPECT_EQ(session.Error(), NoError);
}

TEST(ReplayedInstrument, AllItsConnectionsAreOneConversation) {
  auto session = Replay({{"A?", "1"}, {"A?", "2"}, {"A?", "3"}});
  auto other = session.Another();
  EXPECT_EQ(session.Ask("A?"), "1");
  EXPECT_EQ(other.Ask("A?"), "2");
  session.Connection().Clear(session.Now());
  EXPECT_EQ(session.Ask("A?"), "3") << "also behind a device clear";
}

TEST(ReplayedInstrument, TellsWhoItWas) {
  EXPECT_EQ(Replay({{"*RST", ""}, {"*idn?", "a,b,c,d"}}).TheDevice().Identification(), "a,b,c,d");
  EXPECT_EQ(Replay({{"A?", "1"}}).TheDevice().Identification(), "");
}

TEST(ReplayedInstrument, MisbehavesAsItIsTold) {
  auto session = Replay({{"A?", "1"}, {"A?", "2"}});
  EXPECT_EQ(session.TheDevice().CarryOut("SIMulator:NEXT LOST"), NoError);
  EXPECT_EQ(session.Ask("A?"), "(none)");
  EXPECT_EQ(session.Ask("A?"), "2");
  EXPECT_EQ(session.TheDevice().CarryOut("*RST"), "-113,\"Undefined header\"");
}

} // namespace
} // namespace portico::simulator
