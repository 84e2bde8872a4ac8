#include "views/recall/LineSearch.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

using Texts = std::vector<std::string>;

Texts Found(const LineSearch& search) {
  Texts texts;
  for (std::size_t row = 0; row < search.Found().size(); ++row) texts.push_back(ToUtf8(search.Line(row)));
  return texts;
}

const std::deque<String> Lines = {u"*RST", u"MEAS:VOLT?", u"*CLS", u"meas:curr?", u"*RST"};

TEST(LineSearchTest, BeginsWithAllTheNewestFirstAndEachOnce) {
  const LineSearch search(Lines);
  EXPECT_EQ(Found(search), (Texts{"*RST", "meas:curr?", "*CLS", "MEAS:VOLT?"}));
  EXPECT_EQ(search.Found().front(), 4U);
}

TEST(LineSearchTest, FindsWhatStandsAnywhereCapitalsOrNot) {
  LineSearch search(Lines);
  search.Find(u"eAs");
  EXPECT_EQ(Found(search), (Texts{"meas:curr?", "MEAS:VOLT?"}));
  search.Find(u"?");
  EXPECT_EQ(Found(search), (Texts{"meas:curr?", "MEAS:VOLT?"}));
  search.Find(u"T");
  EXPECT_EQ(Found(search), (Texts{"*RST", "MEAS:VOLT?"}));
}

TEST(LineSearchTest, FollowsATextThatBecomesLongerShorterAndAnother) {
  LineSearch search(Lines);
  search.Find(u"meas:");
  search.Find(u"meas:v");
  EXPECT_EQ(Found(search), (Texts{"MEAS:VOLT?"}));
  search.Find(u"meas");
  EXPECT_EQ(Found(search), (Texts{"meas:curr?", "MEAS:VOLT?"}));
  search.Find(u"*");
  EXPECT_EQ(Found(search), (Texts{"*RST", "*CLS"}));
  search.Find(u"nothing");
  EXPECT_TRUE(search.Found().empty());
  search.Find({});
  EXPECT_EQ(search.Found().size(), 4U);
}

TEST(LineSearchTest, OfNoLinesNoneIsFound) {
  const std::deque<String> none;
  LineSearch search(none);
  search.Find(u"x");
  EXPECT_TRUE(search.Found().empty());
}

} // namespace
} // namespace portico::test
