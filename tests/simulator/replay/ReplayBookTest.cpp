#include "simulator/replay/ReplayBook.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

namespace portico::simulator {
namespace {

using scpi::ErrorCode;

/// A conversation in which each message has one answer, or none where it is empty.
ReplayBook Book(std::initializer_list<std::pair<const char*, const char*>> exchanges) {
  ReplayBook book;
  for (const auto& [message, answer] : exchanges) {
    book.Add(message);
    if (*answer != '\0') book.AddAnswer(answer);
  }
  return book;
}

/// The answers with a bar behind each; "-" where the message is unknown.
std::string Ask(ReplayBook& book, std::string_view message) {
  const auto reply = book.Ask(message);
  if (reply.Error == ErrorCode::UndefinedHeader) return "-";
  std::string text;
  for (const std::string& answer : reply.Answers) text.append(answer).append("|");
  return text;
}

TEST(ReplayBookTest, AMessageGetsTheAnswerThatStoodBehindIt) {
  auto book = Book({{"*IDN?", "x"}, {"*RST", ""}, {"MEAS?", "1"}});
  EXPECT_EQ(Ask(book, "*IDN?"), "x|");
  EXPECT_EQ(Ask(book, "*RST"), "");
  EXPECT_EQ(Ask(book, "MEAS?"), "1|");
}

TEST(ReplayBookTest, SeveralAnswersComeInTheirOrder) {
  ReplayBook book;
  book.AddAnswer("in front of all");
  book.Add("A?");
  book.AddAnswer("1");
  book.AddAnswer("2");
  EXPECT_EQ(Ask(book, "A?"), "1|2|");
  EXPECT_EQ(book.Size(), 1U);
}

TEST(ReplayBookTest, ARepeatedMessageGetsOneAnswerAfterTheOtherAndThenTheLast) {
  auto book = Book({{"MEAS?", "1"}, {"MEAS?", "2"}, {"MEAS?", "3"}});
  EXPECT_EQ(Ask(book, "MEAS?"), "1|");
  EXPECT_EQ(Ask(book, "MEAS?"), "2|");
  EXPECT_EQ(Ask(book, "MEAS?"), "3|");
  EXPECT_EQ(Ask(book, "MEAS?"), "3|");
}

TEST(ReplayBookTest, CaseAndOuterBlanksDoNotCount) {
  auto book = Book({{" Meas:Volt? (@1) \r\n", "1"}});
  EXPECT_EQ(Ask(book, "\tMEAS:VOLT? (@1)"), "1|");
  EXPECT_EQ(Ask(book, "MEAS:VOLT?  (@1)"), "-") << "those within do";
}

TEST(ReplayBookTest, WhatIsSkippedIsNotAnsweredAnyMoreButFromItsLastPlace) {
  auto book = Book({{"A?", "1"}, {"B?", "2"}, {"A?", "3"}, {"C?", "4"}});
  EXPECT_EQ(Ask(book, "B?"), "2|");
  EXPECT_EQ(Ask(book, "A?"), "3|");
  EXPECT_EQ(Ask(book, "B?"), "2|") << "it does not come any more";
}

TEST(ReplayBookTest, OnlyWhatIsFoundAheadMovesTheConversation) {
  auto book = Book({{"A?", "1"}, {"B?", "2"}, {"C?", "3"}, {"B?", "4"}});
  EXPECT_EQ(Ask(book, "B?"), "2|");
  EXPECT_EQ(Ask(book, "A?"), "1|") << "from behind";
  EXPECT_EQ(Ask(book, "C?"), "3|");
  EXPECT_EQ(Ask(book, "A?"), "1|");
  EXPECT_EQ(Ask(book, "B?"), "4|");
}

TEST(ReplayBookTest, WhatNeverOccurredIsAnUndefinedHeader) {
  auto book = Book({{"A?", "1"}, {"B?", "2"}});
  EXPECT_EQ(book.Ask("X?").Error, ErrorCode::UndefinedHeader);
  EXPECT_TRUE(book.Ask("X?").Answers.empty());
  EXPECT_EQ(book.Ask("A?").Error, ErrorCode::NoError) << "the conversation has stayed";
}

TEST(ReplayBookTest, TheOrderIsLeftWhereAnotherMessageComesNext) {
  auto book = Book({{"A?", "1"}, {"B?", "2"}, {"C?", "3"}, {"D?", "4"}});
  EXPECT_EQ(book.Ask("A?").Error, ErrorCode::NoError);
  EXPECT_EQ(book.Ask("A?").Error, ErrorCode::ExecutionError) << "from behind";
  EXPECT_EQ(book.Ask("C?").Error, ErrorCode::ExecutionError) << "one was skipped";
  EXPECT_EQ(book.Ask("D?").Error, ErrorCode::NoError) << "in order again";
  EXPECT_EQ(book.Ask("D?").Error, ErrorCode::ExecutionError) << "beyond the end";
}

TEST(ReplayBookTest, ErrorQueriesDoNotCountForTheOrder) {
  auto book =
      Book({{"A?", "1"}, {"SYST:ERR?", "0"}, {":syst:err?", "0"}, {"B?", "2"}, {"SYST:ERR?", "0"}, {"C?", "3"}});
  EXPECT_EQ(book.Ask("A?").Error, ErrorCode::NoError);
  EXPECT_EQ(book.Ask("B?").Error, ErrorCode::NoError) << "two were left out";
  EXPECT_EQ(book.Ask("C?").Error, ErrorCode::NoError);
  EXPECT_EQ(book.Ask("SYST:ERR?").Error, ErrorCode::NoError) << "from behind";
}

TEST(ReplayBookTest, TextsBeyondTheBoundAreKeptInAFile) {
  ReplayBook book(10);
  for (int i = 0; i < 100; ++i) {
    book.Add("QUERY" + std::to_string(i % 50) + "?");
    book.AddAnswer(std::to_string(i) + std::string(std::size_t{1000}, '\0'));
  }
  for (int i = 0; i < 100; ++i) {
    const auto reply = book.Ask("query" + std::to_string(i % 50) + "?");
    ASSERT_EQ(reply.Answers.size(), 1U) << i;
    EXPECT_EQ(reply.Answers.front(), std::to_string(i) + std::string(std::size_t{1000}, '\0'));
  }
}

TEST(ReplayBookTest, TakesNoMoreMessagesThanItMay) {
  ReplayBook book(100, 2);
  book.Add("A");
  book.Add("A");
  EXPECT_THROW(book.Add("A"), ReplayBook::Full);
  EXPECT_EQ(book.Size(), 2U);
}

TEST(ReplayBookTest, TheFirstAnswerIsToldWithoutMovingTheConversation) {
  auto book = Book({{"*RST", ""}, {"*idn?", "x"}, {"*IDN?", "y"}});
  EXPECT_EQ(book.FirstAnswer("*IDN?"), "x");
  EXPECT_EQ(book.FirstAnswer("*RST"), "");
  EXPECT_EQ(book.FirstAnswer("none"), "");
  EXPECT_EQ(Ask(book, "*IDN?"), "x|");
}

TEST(ReplayBookTest, TheErrorQueryIsKnownInAllItsForms) {
  for (const char* query : {"SYST:ERR?", ":SYST:ERR?", "system:error:next?", " :Syst:Err:Next? \r\n"}) {
    EXPECT_TRUE(IsErrorQuery(query)) << query;
  }
  for (const char* other : {"", "?", "SYST?", "SYST:ERR", "SYST:ERR:COUN?", "SYST:ERR:NEXT:X?", "SYST:ERR?;*OPC?",
                            "SYSTE:ERR?", "::SYST:ERR?", "*ESR?"}) {
    EXPECT_FALSE(IsErrorQuery(other)) << other;
  }
}

} // namespace
} // namespace portico::simulator
