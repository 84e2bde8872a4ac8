#include "plot/Curves.h"

#include <gtest/gtest.h>

namespace portico::plot {
namespace {

class CurvesTest : public testing::Test {
protected:
  void Ask(StringView query, StringView answer, double seconds = 0) {
    Talk.Sent(query);
    Talk.Answered(answer, seconds);
  }
  std::vector<String> Names() const {
    std::vector<String> names;
    for (const Curve& curve : Seen.All()) names.push_back(curve.Name);
    return names;
  }
  std::vector<double> Values(std::size_t curve = 0) const {
    std::vector<double> values;
    const numbers::Series& data = *Seen.All().at(curve).Data;
    for (std::size_t i = 0; i < data.Size(); ++i) values.push_back(data.Value(i));
    return values;
  }

  Conversation Talk;
  Curves Seen{Talk};
};

TEST_F(CurvesTest, OverTimeEachNumberOfAListIsACurve) {
  Ask(u"READ?", u"1,2");
  Ask(u"VOLT?", u"5");
  Seen.Choose({.Queries = {u"READ?", u"VOLT?"}});
  EXPECT_EQ(Names(), (std::vector<String>{u"READ? [1]", u"READ? [2]", u"VOLT?"}));
  EXPECT_EQ(Values(1), (std::vector<double>{2}));
  EXPECT_TRUE(Seen.IsTime());
  EXPECT_EQ(Seen.Fault(), u"");
}

TEST_F(CurvesTest, OverTheIndexTheLastAnswerIsACurve) {
  Ask(u"READ?", u"9,9,9");
  Ask(u"READ?", u"1,2,4");
  Seen.Choose({.Queries = {u"READ?"}, .Kind = CurveKind::OverIndex});
  EXPECT_EQ(Values(), (std::vector<double>{1, 2, 4}));
  EXPECT_EQ(Seen.All()[0].Data->Place(2), 2);
  EXPECT_FALSE(Seen.IsTime());
  Ask(u"READ?", u"7,8");
  Seen.Update();
  EXPECT_EQ(Values(), (std::vector<double>{7, 8}));
}

TEST_F(CurvesTest, BlocksAreReadAsTheConversationTellsUnlessAFormatIsChosen) {
  Talk.Sent(u"FORM:BORD SWAP;:FORM INT,16");
  Ask(u"CURV?", StringView(u"#14\1\0\2\0", 7));
  Seen.Choose({.Queries = {u"CURV?"}, .Kind = CurveKind::OverIndex});
  EXPECT_EQ(Values(), (std::vector<double>{1, 2}));
  Seen.Choose({.Queries = {u"CURV?"}, .Kind = CurveKind::OverIndex, .Order = numbers::ByteOrder::MostSignificantFirst});
  EXPECT_EQ(Values(), (std::vector<double>{256, 512}));
  Seen.Choose({.Queries = {u"CURV?"}, .Kind = CurveKind::OverIndex, .Type = numbers::ElementType::UInt8});
  EXPECT_EQ(Values(), (std::vector<double>{1, 0, 2, 0}));
}

TEST_F(CurvesTest, WhatCannotBeSeenIsToldInOneSentence) {
  EXPECT_TRUE(Seen.All().empty());
  Seen.Choose({});
  EXPECT_EQ(Seen.Fault(), u"Nothing is chosen.");
  Seen.Choose({.Queries = {u"VOLT?"}});
  EXPECT_EQ(Seen.Fault(), u"VOLT? was not answered with numbers.");
  Ask(u"VOLT?", u"1");
  Seen.Choose({.Queries = {u"VOLT?"}, .Kind = CurveKind::OverIndex});
  EXPECT_EQ(Seen.Fault(), u"VOLT? has no answer of several numbers.");
}

TEST_F(CurvesTest, OfSeveralFaultsTheFirstIsTold) {
  Ask(u"READ?", u"1,2");
  Seen.Choose({.Queries = {u"VOLT?", u"READ?", u"CURR?"}});
  EXPECT_EQ(Names(), (std::vector<String>{u"READ? [1]", u"READ? [2]"}));
  EXPECT_EQ(Seen.Fault(), u"VOLT? was not answered with numbers.");
}

TEST_F(CurvesTest, PlacesOfALastAnswerThatIsNotThereAreNoSeconds) {
  Seen.Choose({.Queries = {u"VOLT?"}, .Kind = CurveKind::OverIndex});
  EXPECT_FALSE(Seen.IsTime());
}

TEST_F(CurvesTest, ATornBlockIsAFaultAndNoCurve) {
  Ask(u"CURV?", u"1,2");
  Ask(u"CURV?", u"#3100ab");
  Seen.Choose({.Queries = {u"CURV?"}, .Kind = CurveKind::OverIndex});
  EXPECT_TRUE(Seen.All().empty());
  EXPECT_TRUE(Seen.Fault().starts_with(u"CURV?: ")) << ToUtf8(Seen.Fault());
}

TEST_F(CurvesTest, AQueryThatOnlyBlocksAnsweredCanBeSeenOverTheIndex) {
  Ask(u"CURV?", u"#13abc");
  Seen.Choose({.Queries = {u"CURV?"}, .Kind = CurveKind::OverIndex});
  EXPECT_EQ(Values(), (std::vector<double>{97, 98, 99}));
  Seen.Choose({.Queries = {u"CURV?"}});
  EXPECT_EQ(Seen.Fault(), u"CURV? was answered with blocks: see its last answer.");
}

TEST_F(CurvesTest, APreambleTurnsCodesIntoValuesOverTime) {
  Ask(u"WAV:PRE?", u"3,0.5,2,0,100");
  Talk.Sent(u"WAV:DATA?");
  Talk.Answered(u"#13def", 0);
  Seen.Choose({.Queries = {u"WAV:DATA?"}, .Kind = CurveKind::OverIndex});
  EXPECT_EQ(Values(), (std::vector<double>{0, 2, 4}));
  EXPECT_EQ(Seen.All()[0].Data->Place(2), 1.0);
  EXPECT_TRUE(Seen.IsTime());
}

} // namespace
} // namespace portico::plot
