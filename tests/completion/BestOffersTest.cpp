#include "completion/BestOffers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

namespace portico::completion {
namespace {

std::string Texts(const BestOffers& offers) {
  std::string texts;
  for (const BestOffers::Offer& offer : offers.InOrder()) texts += (texts.empty() ? "" : " ") + offer.Text;
  return texts;
}

TEST(BestOffers, AreTheFirstInOrder) {
  BestOffers offers(3);
  EXPECT_EQ(Texts(offers), "");
  offers.Add({.Rank = 1, .Name = "A"}, "a", "");
  offers.Add({.Rank = 0, .Name = "D"}, "d", "");
  offers.Add({.Rank = 0, .Name = "C", .Place = 2}, "c2", "");
  EXPECT_EQ(Texts(offers), "c2 d a");
  offers.Add({.Rank = 0, .Name = "C", .Place = 1}, "c1", "");
  EXPECT_EQ(Texts(offers), "c1 c2 d");
  offers.Add({.Rank = 0, .Name = "E"}, "e", "");
  EXPECT_EQ(Texts(offers), "c1 c2 d");
}

TEST(BestOffers, OfOneTextTheFirstInOrderIsKept) {
  BestOffers offers(2);
  offers.Add({.Rank = 2, .Name = "A"}, "a", "second");
  offers.Add({.Rank = 3, .Name = "B"}, "b", "");
  offers.Add({.Rank = 1, .Name = "A"}, "a", "first");
  offers.Add({.Rank = 2, .Name = "A"}, "a", "third");
  EXPECT_EQ(Texts(offers), "a b");
  EXPECT_EQ(offers.InOrder().front().Shown, "first");
}

TEST(BestOffers, OfOneOrderTheFirstToComeIsFirst) {
  BestOffers offers(2);
  for (const char* text : {"b", "a", "c"}) offers.Add({.Name = "X"}, text, "");
  EXPECT_EQ(Texts(offers), "b a");
}

TEST(BestOffers, HavePlaceWhileThereAreFewAndThenForWhatIsNoLaterThanTheLast) {
  BestOffers offers(2);
  offers.Add({.Rank = 1, .Name = "M"}, "m", "");
  EXPECT_TRUE(offers.HasPlaceFor(9, true, "Z"));
  offers.Add({.Rank = 1, .Name = "N", .Place = 3}, "n", "");
  EXPECT_TRUE(offers.HasPlaceFor(0, true, "Z"));
  EXPECT_TRUE(offers.HasPlaceFor(1, false, "N"));
  EXPECT_FALSE(offers.HasPlaceFor(1, false, "O"));
  EXPECT_FALSE(offers.HasPlaceFor(1, true, "A"));
  EXPECT_FALSE(offers.HasPlaceFor(2, false, "A"));
}

TEST(BestOffers, AreThoseThatSortingAllWouldGive) {
  struct Offered {
    BestOffers::Order Order;
    std::string Text;
  };
  std::mt19937 random(20261123);
  const auto upTo = [&](unsigned int most) { return random() % (most + 1); };
  for (int round = 0; round < 200; ++round) {
    BestOffers best(7);
    std::vector<Offered> all;
    for (int i = 0; i < 60; ++i) {
      const BestOffers::Order order = {upTo(2), upTo(1) == 1, std::string(1, static_cast<char>('A' + upTo(4)))};
      all.push_back({order, std::string(1, static_cast<char>('a' + upTo(20)))});
      if (best.HasPlaceFor(order.Rank, order.IsCommon, order.Name)) best.Add(order, all.back().Text, "");
    }
    std::ranges::stable_sort(all, {}, &Offered::Order);
    std::string expected;
    std::set<std::string> texts;
    for (const Offered& each : all) {
      if (texts.size() < 7 && texts.insert(each.Text).second) expected += (expected.empty() ? "" : " ") + each.Text;
    }
    ASSERT_EQ(Texts(best), expected) << "round " << round;
  }
}

} // namespace
} // namespace portico::completion
