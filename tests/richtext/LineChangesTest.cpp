#include "richtext/LineChanges.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

namespace portico::richtext {
namespace {

using Stretches = std::vector<LineChanges::Stretch>;

TEST(LineChangesTest, BeginsWithout) {
  LineChanges changes;
  EXPECT_TRUE(changes.IsEmpty());
  changes.Add(3, 1, 1);
  EXPECT_FALSE(changes.IsEmpty());
  changes.Clear();
  EXPECT_TRUE(changes.IsEmpty());
}

TEST(LineChangesTest, LinesTakenFromTheFrontAreOneStretch) {
  LineChanges changes;
  for (int i = 0; i < 5; ++i) changes.Add(0, 2, 1);
  EXPECT_EQ(changes.All(), (Stretches{{0, 1, 0, 6}}));
}

TEST(LineChangesTest, LinesAddedAtTheEndAreOneStretch) {
  LineChanges changes;
  for (std::size_t i = 0; i < 5; ++i) changes.Add(9 + i, 1, 2);
  EXPECT_EQ(changes.All(), (Stretches{{9, 6, 9, 1}}));
}

TEST(LineChangesTest, BothEndsAreTwoStretches) {
  LineChanges changes;
  changes.Add(0, 2, 1);
  changes.Add(8, 1, 2);
  changes.Add(0, 2, 1);
  changes.Add(8, 1, 2);
  EXPECT_EQ(changes.All(), (Stretches{{0, 1, 0, 3}, {7, 3, 9, 1}}));
}

TEST(LineChangesTest, AnEditAcrossStretchesJoinsThem) {
  LineChanges changes;
  changes.Add(2, 1, 1);
  changes.Add(6, 1, 3);
  changes.Add(12, 1, 1);
  changes.Add(1, 8, 1);
  EXPECT_EQ(changes.All(), (Stretches{{1, 1, 1, 6}, {5, 1, 10, 1}}));
}

/// A copy that is brought up to date from the stretches is the text.
TEST(LineChangesTest, StretchesAreAllThatDiffers) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int round = 0; round < 2000; ++round) {
    std::vector<int> text(1 + below(60));
    std::iota(text.begin(), text.end(), 0);
    std::vector<int> copy = text;
    int next = 1000;
    LineChanges changes;
    for (std::size_t edits = below(30); edits > 0; --edits) {
      const std::size_t first = below(text.size() + 1);
      const std::size_t before = std::min(below(4), text.size() - first);
      const std::size_t after = below(4);
      const auto at = text.begin() + static_cast<std::ptrdiff_t>(first);
      auto hole = text.erase(at, at + static_cast<std::ptrdiff_t>(before));
      for (std::size_t i = 0; i < after; ++i) hole = text.insert(hole, next++);
      changes.Add(first, before, after);
      ASSERT_LE(changes.All().size(), LineChanges::MostStretches);
    }
    for (auto stretch = changes.All().rbegin(); stretch != changes.All().rend(); ++stretch) {
      const auto old = copy.begin() + static_cast<std::ptrdiff_t>(stretch->OldFirst);
      const auto hole = copy.erase(old, old + static_cast<std::ptrdiff_t>(stretch->OldCount));
      const auto now = text.begin() + static_cast<std::ptrdiff_t>(stretch->First);
      copy.insert(hole, now, now + static_cast<std::ptrdiff_t>(stretch->Count));
    }
    ASSERT_EQ(copy, text) << round;
  }
}

} // namespace
} // namespace portico::richtext
