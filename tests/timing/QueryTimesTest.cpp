#include "timing/QueryTimes.h"

#include <gtest/gtest.h>

namespace portico::timing {
namespace {

using namespace std::chrono_literals;

/// A line for each row: the query, its count and its figures in nanoseconds.
std::vector<std::string> TableOf(const QueryTimes& times) {
  std::vector<std::string> lines;
  for (const QueryFigures& row : times.Figures()) {
    lines.push_back((row.Query ? ToUtf8(*row.Query) : "others") + ": " + std::to_string(row.Count) + ", " +
                    std::to_string(row.Median.count()) + ", " + std::to_string(row.Percentile99.count()) + ", " +
                    std::to_string(row.Maximum.count()));
  }
  return lines;
}

using Table = std::vector<std::string>;

TEST(QueryTimes, AtFirstThereIsNothing) {
  const QueryTimes times;
  EXPECT_EQ(TableOf(times), Table());
  EXPECT_FALSE(times.Last());
}

TEST(QueryTimes, EachQueryHasItsFiguresInTheOrderOfTheFirstTime) {
  QueryTimes times;
  times.Add("B?", 3ns);
  times.Add("A?", 10ns);
  times.Add("B?", 1ns);
  times.Add("B?", 2ns);
  EXPECT_EQ(TableOf(times), (Table{"B?: 3, 2, 3, 3", "A?: 1, 10, 10, 10"}));
}

TEST(QueryTimes, TextsAreTakenToTheLetter) {
  QueryTimes times;
  for (const char* query : {"*IDN?", "*idn?", "*IDN? ", "5 \xB5V?", ""}) times.Add(query, 1ns);
  EXPECT_EQ(TableOf(times), (Table{"*IDN?: 1, 1, 1, 1", "*idn?: 1, 1, 1, 1", "*IDN? : 1, 1, 1, 1",
                                   "5 \xC2\xB5V?: 1, 1, 1, 1", ": 1, 1, 1, 1"}));
}

TEST(QueryTimes, LastIsTheLatest) {
  QueryTimes times;
  times.Add("A?", 1ns);
  times.Add("\x80?", 7ns);
  EXPECT_EQ(times.Last()->Query, u"\u20AC?");
  EXPECT_EQ(times.Last()->Taken, 7ns);
  times.Add("A?", 2ns);
  EXPECT_EQ(times.Last()->Query, u"A?");
  EXPECT_EQ(times.Last()->Taken, 2ns);
}

TEST(QueryTimes, LastIsToldEvenIfNoQueryHasARow) {
  QueryTimes times;
  times.Add(std::string(QueryTimes::LongestQuery + 1, 'A'), 7ns);
  ASSERT_TRUE(times.Last());
  EXPECT_EQ(times.Last()->Query, String(QueryTimes::LongestQuery, u'A'));
  EXPECT_EQ(times.Last()->Taken, 7ns);
}

TEST(QueryTimes, BeyondFiveHundredQueriesOthersShareARow) {
  QueryTimes times;
  for (int i = 0; i < 2000; ++i) times.Add("Q" + std::to_string(i) + "?", std::chrono::nanoseconds(i % 100));
  times.Add("Q3?", 3ns);
  const Table table = TableOf(times);
  ASSERT_EQ(table.size(), 501U);
  EXPECT_EQ(table[3], "Q3?: 2, 3, 3, 3");
  EXPECT_EQ(table[499], "Q499?: 1, 99, 99, 99");
  EXPECT_EQ(table[500], "others: 1500, 49, 98, 99");
}

TEST(QueryTimes, ALongQueryHasNoRowOfItsOwn) {
  QueryTimes times;
  times.Add(std::string(256, 'A'), 1ns);
  times.Add(std::string(257, 'A'), 5ns);
  EXPECT_EQ(TableOf(times), (Table{std::string(256, 'A') + ": 1, 1, 1, 1", "others: 1, 5, 5, 5"}));
  EXPECT_EQ(times.Last()->Query, String(256, u'A'));
  EXPECT_EQ(times.Last()->Taken, 5ns);
}

TEST(QueryTimes, ClearForgetsAll) {
  QueryTimes times;
  times.Add("A?", 1ns);
  times.Add(std::string(300, 'A'), 1ns);
  times.Clear();
  EXPECT_EQ(TableOf(times), Table());
  EXPECT_FALSE(times.Last());
  times.Add("A?", 2ns);
  EXPECT_EQ(TableOf(times), (Table{"A?: 1, 2, 2, 2"}));
}

} // namespace
} // namespace portico::timing
