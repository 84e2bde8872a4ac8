#include "ui/plot/PlotSource.h"
#include "document/entities/CDataEntity.h"
#include "support/fixtures/DocumentFixture.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

class PlotSourceTest : public DocumentFixture {
protected:
  void Add(StringView text, StringView type) { Queue->Enqueue(Entity(text, type)); }
  void Ask(StringView query, StringView answer) {
    Add(String(query).append(NewLine), DataTypeName::Instruction);
    Now += 0.25;
    Add(String(answer).append(NewLine), DataTypeName::Response);
  }
  static const numbers::Series& Curve(const FollowedConversation& followed) {
    return followed.Conversation().Queries().All().front().Curves.at(0);
  }

  double Now = 1000;
  Ref<CDataFIFO> Queue = Create(Class::DataContainer, 0);
  Ref<PlotSource> Source = New<PlotSource>(Queue, [this] { return Now; });
};

TEST_F(PlotSourceTest, WhatWasAnsweredBeforeIsThereWithItsTimes) {
  Ask(u"VOLT?", u"1");
  Ask(u"VOLT?", u"2");
  Now = 2000;
  const auto followed = Source->Follow();
  ASSERT_EQ(Curve(*followed).Size(), 2U);
  EXPECT_EQ(Curve(*followed).Place(0), 0);
  EXPECT_EQ(Curve(*followed).Place(1), 0.25);
  EXPECT_EQ(Curve(*followed).Value(1), 2);
}

TEST_F(PlotSourceTest, WhatComesIsToldAtOnce) {
  Ask(u"VOLT?", u"1");
  const auto followed = Source->Follow();
  int changes = 0;
  followed->Changed.Connect([&] { ++changes; });
  Ask(u"VOLT?", u"3");
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(Curve(*followed).Size(), 2U);
  EXPECT_EQ(Curve(*followed).Place(1), 0.25);
}

TEST_F(PlotSourceTest, WhatTheProgramAsksByItselfIsLeftOut) {
  const auto followed = Source->Follow();
  Add(u"*OPC?\r\n", DataTypeName::AutomaticInstruction);
  Add(u"1\r\n", DataTypeName::Response);
  Ask(u"VOLT?", u"3");
  Add(u":SYST:ERR?\r\n", DataTypeName::AutomaticInstruction);
  Add(u"0\r\n", DataTypeName::Response);
  EXPECT_EQ(followed->Conversation().Queries().All().size(), 1U);
}

TEST_F(PlotSourceTest, TimeBeginsWithTheFirstAnswerToTheUser) {
  Add(u"*OPC?\r\n", DataTypeName::AutomaticInstruction);
  Add(u"1\r\n", DataTypeName::Response);
  Ask(u"VOLT?", u"3");
  EXPECT_EQ(Curve(*Source->Follow()).Place(0), 0);
}

TEST_F(PlotSourceTest, AllWhoFollowShareOneAndALaterOneReadsAnew) {
  Ask(u"VOLT?", u"1");
  auto followed = Source->Follow();
  EXPECT_EQ(Source->Follow(), followed);
  followed.reset();
  Ask(u"VOLT?", u"2");
  EXPECT_EQ(Curve(*Source->Follow()).Size(), 2U);
}

TEST_F(PlotSourceTest, FollowsNoLongerOnceItIsGone) {
  const auto followed = Source->Follow();
  Source = nullptr;
  Ask(u"VOLT?", u"1");
  EXPECT_TRUE(followed->Conversation().Queries().All().empty());
}

TEST(StampTest, TellsWholeSecondsWhateverTheZone) {
  const auto first = SecondsOfStamp(u"2026-11-22T21:30:59.000000007+01:00");
  const auto second = SecondsOfStamp(u"2026-11-22T20:31:00.000000001+00:00");
  ASSERT_TRUE(first && second);
  EXPECT_EQ(*second - *first, 1);
  EXPECT_EQ(*SecondsOfStamp(u"2026-03-01T00:00:00") - *SecondsOfStamp(u"2026-02-28T23:59:59"), 1);
}

TEST(StampTest, WhatIsNoStampTellsNothing) {
  for (const StringView text : {u"", u"2026", u"2026-13-01T00:00:00", u"2026-02-30T00:00:00", u"yyyy-mm-ddThh:mm:ss"}) {
    EXPECT_FALSE(SecondsOfStamp(text)) << ToUtf8(text);
  }
}

} // namespace
} // namespace portico::test
