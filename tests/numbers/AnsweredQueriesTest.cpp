#include "numbers/AnsweredQueries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace portico::numbers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Points = std::vector<std::pair<double, double>>;

/// Of a curve; -99 stands for a gap.
Points PointsOf(const Series& series) {
  Points points;
  for (std::size_t i = 0; i < series.Size(); ++i) {
    points.emplace_back(series.Place(i), IsGap(series.Value(i)) ? -99 : series.Value(i));
  }
  return points;
}

std::vector<String> QueriesOf(const AnsweredQueries& queries) {
  std::vector<String> texts;
  for (const auto& answers : queries.All()) texts.push_back(answers.Query);
  return texts;
}

TEST(AnsweredQueries, OnlyQueriesThatWereAnsweredWithNumbersAreThere) {
  AnsweredQueries queries;
  queries.Add(u"*IDN?", u"TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0", 0);
  queries.Add(u"MEAS:VOLT?", u"+1.5E+00", 1);
  queries.Add(u":SYST:ERR?", u"0,\"No error\"", 2);
  queries.Add(u"OUTP?", u"1", 3);
  EXPECT_THAT(QueriesOf(queries), ElementsAre(u"MEAS:VOLT?", u"OUTP?"));
  EXPECT_EQ(queries.Find(u"*IDN?"), nullptr);
}

TEST(AnsweredQueries, AnswersOfAQueryAreACurveOverTime) {
  AnsweredQueries queries;
  queries.Add(u"MEAS:VOLT?", u"1.5", 10);
  queries.Add(u"MEAS:CURR?", u"7", 10.5);
  queries.Add(u" meas:volt?\r\n", u"2.5", 11);
  const auto* answers = queries.Find(u"Meas:Volt? ");
  ASSERT_NE(answers, nullptr);
  EXPECT_EQ(answers->Query, u"MEAS:VOLT?");
  ASSERT_EQ(answers->Curves.size(), 1U);
  EXPECT_EQ(PointsOf(answers->Curves[0]), (Points{{10, 1.5}, {11, 2.5}}));
}

TEST(AnsweredQueries, EachNumberOfAListHasACurve) {
  AnsweredQueries queries;
  queries.Add(u"READ?", u"1,2", 0);
  queries.Add(u"READ?", u"3,4,5", 1);
  queries.Add(u"READ?", u"6", 2);
  const auto& curves = queries.Find(u"READ?")->Curves;
  ASSERT_EQ(curves.size(), 3U);
  EXPECT_EQ(PointsOf(curves[0]), (Points{{0, 1}, {1, 3}, {2, 6}}));
  EXPECT_EQ(PointsOf(curves[1]), (Points{{0, 2}, {1, 4}, {2, -99}}));
  EXPECT_EQ(PointsOf(curves[2]), (Points{{1, 5}, {2, -99}}));
  EXPECT_EQ(queries.Find(u"READ?")->MostNumbers, 3U);
}

TEST(AnsweredQueries, AnswerWithoutNumbersIsAGap) {
  AnsweredQueries queries;
  queries.Add(u"READ?", u"1,2", 0);
  queries.Add(u"READ?", u"", 1);
  queries.Add(u"READ?", u"9.91E37,overload", 2);
  const auto& curves = queries.Find(u"READ?")->Curves;
  EXPECT_EQ(PointsOf(curves[0]), (Points{{0, 1}, {1, -99}, {2, -99}}));
  EXPECT_EQ(PointsOf(curves[1]), (Points{{0, 2}, {1, -99}, {2, -99}}));
}

TEST(AnsweredQueries, BlocksAreNotedAndAreInNoCurve) {
  AnsweredQueries queries;
  queries.Add(u"WAV:DATA?", u"#15hello", 0);
  ASSERT_NE(queries.Find(u"WAV:DATA?"), nullptr);
  EXPECT_TRUE(queries.Find(u"WAV:DATA?")->Blocks);
  EXPECT_THAT(queries.Find(u"WAV:DATA?")->Curves, IsEmpty());
  queries.Add(u"WAV:DATA?", u"1.5", 1);
  EXPECT_TRUE(queries.Find(u"WAV:DATA?")->Blocks) << "some answers were";
  queries.Add(u"WAV:DATA?", u"#15hello", 2);
  EXPECT_EQ(PointsOf(queries.Find(u"WAV:DATA?")->Curves[0]), (Points{{1, 1.5}, {2, -99}}));
  queries.Add(u"STAT?", u"#HFF", 3);
  EXPECT_FALSE(queries.Find(u"STAT?")->Blocks);
}

TEST(AnsweredQueries, OfALongListTheFirstNumbersHaveCurves) {
  String list = u"0";
  for (int i = 1; i < 65; ++i) list += u"," + ToText(std::int64_t{i});
  AnsweredQueries queries;
  queries.Add(u"READ?", list, 0);
  EXPECT_EQ(queries.Find(u"READ?")->Curves.size(), 64U);
  EXPECT_EQ(queries.Find(u"READ?")->MostNumbers, 65U);
  EXPECT_EQ(PointsOf(queries.Find(u"READ?")->Curves[63]), (Points{{0, 63}}));
}

TEST(AnsweredQueries, OfMoreQueriesThatIsForgottenWhoseAnswerIsOldest) {
  AnsweredQueries queries;
  const auto query = [](int number) { return u"Q" + ToText(std::int64_t{number}) + u"?"; };
  for (int i = 0; i < 256; ++i) queries.Add(query(i), u"1", i);
  queries.Add(query(0), u"2", 256);
  const auto* first = queries.Find(query(0));
  EXPECT_EQ(queries.All().size(), 256U);
  queries.Add(query(256), u"1", 257);
  EXPECT_EQ(queries.All().size(), 256U);
  EXPECT_EQ(queries.Find(query(1)), nullptr);
  EXPECT_NE(queries.Find(query(2)), nullptr);
  EXPECT_EQ(queries.Find(query(0)), first);
  EXPECT_EQ(queries.All().back().Query, query(256));
  queries.Add(query(257), u"no number", 258);
  EXPECT_NE(queries.Find(query(2)), nullptr) << "what has no numbers takes no place";
}

} // namespace
} // namespace portico::numbers
