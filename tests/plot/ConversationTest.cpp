#include "plot/Conversation.h"

#include <gtest/gtest.h>

namespace portico::plot {
namespace {

TEST(ConversationTest, AnswersToWhatTheUserAskedAreKeptOverTime) {
  Conversation conversation;
  conversation.Sent(u"MEAS:VOLT?\r\n");
  conversation.Answered(u"+1.5E+00\r\n", 0);
  conversation.SentByItself();
  conversation.Answered(u"0\r\n", 0.1);
  conversation.Sent(u"meas:volt?\r\n");
  conversation.Answered(u"2\r\n", 0.5);
  ASSERT_EQ(conversation.Queries().All().size(), 1U);
  const auto& curve = conversation.Queries().All().front().Curves.at(0);
  ASSERT_EQ(curve.Size(), 2U);
  EXPECT_EQ(curve.Value(0), 1.5);
  EXPECT_EQ(curve.Place(1), 0.5);
  EXPECT_EQ(curve.Value(1), 2);
  EXPECT_EQ(conversation.Newest(), u"MEAS:VOLT?");
  EXPECT_EQ(conversation.AnswerCount(), 2U);
}

TEST(ConversationTest, TheLastAnswerOfSeveralNumbersIsKeptAsItCame) {
  Conversation conversation;
  conversation.Sent(u"READ?");
  conversation.Answered(u"1,2,3\r\n", 0);
  conversation.Answered(u"4,5\r\n", 1);
  conversation.Sent(u"VOLT?");
  conversation.Answered(u"4\r\n", 2);
  ASSERT_NE(conversation.Last(u"read?"), nullptr);
  EXPECT_EQ(conversation.Last(u"read?")->Text, u"4,5");
  EXPECT_EQ(conversation.Last(u"VOLT?"), nullptr);
}

TEST(ConversationTest, ABlockLosesNoByteThatLooksLikeALineEnd) {
  Conversation conversation;
  conversation.Sent(u"CURV?");
  conversation.Answered(u"#14ab\r\n\r\n", 0);
  ASSERT_NE(conversation.Last(u"CURV?"), nullptr);
  EXPECT_EQ(conversation.Last(u"CURV?")->Text, u"#14ab\r\n");
}

TEST(ConversationTest, TheFormatIsThatOfTheAnswersTime) {
  Conversation conversation;
  conversation.Sent(u"FORM:BORD SWAP;:FORM:DATA REAL,32");
  conversation.Sent(u"CURV?");
  conversation.Answered(u"#14abcd\r\n", 0);
  conversation.Sent(u"*RST");
  const auto* last = conversation.Last(u"CURV?");
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->Format.Type, numbers::ElementType::Float32);
  EXPECT_EQ(last->Format.Order, numbers::ByteOrder::LeastSignificantFirst);
}

TEST(ConversationTest, MemoryForLastAnswersIsBounded) {
  Conversation conversation;
  String answer = u"1,2";
  answer.resize(Conversation::LongestKept / 2, u' ');
  for (const StringView query : {u"A?", u"B?", u"C?"}) {
    conversation.Sent(query);
    conversation.Answered(answer, 0);
  }
  EXPECT_EQ(conversation.Last(u"A?"), nullptr);
  EXPECT_NE(conversation.Last(u"B?"), nullptr);
  EXPECT_NE(conversation.Last(u"C?"), nullptr);
}

TEST(ConversationTest, AnAnswerThatTookTheLastOnesPlaceTakesNoFurtherRoom) {
  Conversation conversation;
  conversation.Sent(u"A?");
  conversation.Answered(u"1,2\r\n", 0);
  String answer = u"1,2";
  answer.resize(Conversation::LongestKept / 2, u' ');
  conversation.Sent(u"B?");
  for (int i = 0; i < 2; ++i) conversation.Answered(answer, 1);
  ASSERT_NE(conversation.Last(u"A?"), nullptr);
  EXPECT_EQ(conversation.Last(u"A?")->Text, u"1,2");
}

TEST(ConversationTest, OfMoreQueriesThanAreRememberedNoLastAnswersAreKept) {
  Conversation conversation;
  for (std::int64_t i = 0; i <= 256; ++i) {
    conversation.Sent(u"Q" + ToText(i) + u"?");
    conversation.Answered(u"1,2\r\n", 0);
  }
  EXPECT_EQ(conversation.Last(u"Q0?"), nullptr);
  EXPECT_NE(conversation.Last(u"Q1?"), nullptr);
  EXPECT_NE(conversation.Last(u"Q256?"), nullptr);
}

TEST(ConversationTest, WhatIsNoNumberMakesNoQuery) {
  Conversation conversation;
  conversation.Sent(u"*IDN?");
  conversation.Answered(u"Maker,Model,0,1.0\r\n", 0);
  EXPECT_TRUE(conversation.Queries().All().empty());
  EXPECT_EQ(conversation.Newest(), u"");
}

} // namespace
} // namespace portico::plot
