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

TEST(LineChangesTest, OfAPartThatIsTakenTheRestWaits) {
  LineChanges changes;
  changes.Add(5, 1, 100);
  const auto part = changes.Take(40, 60, 200);
  ASSERT_TRUE(part.has_value());
  EXPECT_EQ(part->Lines, (LineChanges::Stretch{40, 20, 5, 1}));
  EXPECT_TRUE(part->WaitsBefore);
  EXPECT_TRUE(part->WaitsBehind);
  EXPECT_EQ(changes.All(), (Stretches{{5, 35, 5, 1}, {60, 45, 26, 1}}));
  EXPECT_FALSE(changes.Take(40, 60, 200).has_value());
  EXPECT_EQ(changes.InCopy(4), 4U);
  EXPECT_EQ(changes.InCopy(40), 6U);
  EXPECT_EQ(changes.InCopy(105), 27U);
  EXPECT_EQ(changes.InText(4), 4U);
  EXPECT_EQ(changes.InText(5), std::nullopt);
  EXPECT_EQ(changes.InText(25), 59U);
  EXPECT_EQ(changes.InText(26), std::nullopt);
  EXPECT_EQ(changes.InText(27), 105U);
}

TEST(LineChangesTest, APartWithoutLinesTakesInANeighbour) {
  LineChanges changes;
  changes.Add(5, 3, 0);
  EXPECT_FALSE(changes.Take(0, 5, 10).has_value());
  const auto inside = changes.Take(0, 10, 10);
  ASSERT_TRUE(inside.has_value());
  EXPECT_EQ(inside->Lines, (LineChanges::Stretch{5, 1, 5, 4}));
  EXPECT_TRUE(changes.IsEmpty());
  changes.Add(7, 3, 0);
  const auto atTheEnd = changes.Take(0, 7, 7);
  ASSERT_TRUE(atTheEnd.has_value());
  EXPECT_EQ(atTheEnd->Lines, (LineChanges::Stretch{6, 1, 6, 4}));
}

/// A text that is edited at random, and a copy that is given parts of it now and then.
class LineChangesCopyTest : public testing::TestWithParam<unsigned> {
protected:
  std::size_t Below(std::size_t limit) { return m_random() % limit; }

  void Edit() {
    const std::size_t first = Below(text.size() + 1);
    const std::size_t before = std::min(Below(4), text.size() - first);
    const std::size_t after = text.size() == before ? 1 + Below(4) : Below(Below(8) == 0 ? 40 : 4);
    const auto at = text.begin() + static_cast<std::ptrdiff_t>(first);
    auto hole = text.erase(at, at + static_cast<std::ptrdiff_t>(before));
    for (std::size_t i = 0; i < after; ++i) hole = text.insert(hole, m_next++);
    changes.Add(first, before, after);
    ASSERT_LE(changes.All().size(), LineChanges::MostStretches);
  }

  bool Take(std::size_t first, std::size_t end) {
    const auto part = changes.Take(first, end, text.size());
    if (!part) return false;
    const LineChanges::Stretch& lines = part->Lines;
    EXPECT_GT(lines.Count, 0U);
    EXPECT_GT(lines.OldCount, 0U);
    EXPECT_GE(lines.First, first);
    EXPECT_LE(lines.First + lines.Count, end);
    const auto old = copy.begin() + static_cast<std::ptrdiff_t>(lines.OldFirst);
    auto hole = copy.erase(old, old + static_cast<std::ptrdiff_t>(lines.OldCount));
    if (part->WaitsBehind) hole = copy.insert(hole, StandIn);
    const auto now = text.begin() + static_cast<std::ptrdiff_t>(lines.First);
    hole = copy.insert(hole, now, now + static_cast<std::ptrdiff_t>(lines.Count));
    if (part->WaitsBefore) copy.insert(hole, StandIn);
    return true;
  }

  /// All lines that do not wait are where they are said to be.
  void ExpectInCopy() const {
    std::size_t line = 0;
    for (const LineChanges::Stretch& stretch : changes.All()) {
      for (; line < stretch.First; ++line) ExpectInCopy(line);
      for (std::size_t i = 0; i < stretch.OldCount; ++i) ASSERT_EQ(changes.InText(stretch.OldFirst + i), std::nullopt);
      line = stretch.First + stretch.Count;
    }
    for (; line < text.size(); ++line) ExpectInCopy(line);
  }
  void ExpectInCopy(std::size_t line) const {
    ASSERT_EQ(copy.at(changes.InCopy(line)), text[line]);
    ASSERT_EQ(changes.InText(changes.InCopy(line)), line);
  }

  static constexpr int StandIn = -1;
  std::vector<int> text{0};
  std::vector<int> copy{0};
  LineChanges changes;

private:
  std::mt19937 m_random{GetParam()};
  int m_next = 1000;
};

TEST_P(LineChangesCopyTest, ACopyThatIsGivenAllThatWaitsIsTheText) {
  for (int round = 0; round < 500; ++round) {
    for (std::size_t edits = Below(20); edits > 0; --edits) {
      ASSERT_NO_FATAL_FAILURE(Edit());
      if (Below(3) == 0) {
        const std::size_t first = Below(text.size());
        Take(first, first + Below(12));
        ASSERT_NO_FATAL_FAILURE(ExpectInCopy()) << round;
      }
    }
    if (Below(2) == 0) continue;
    while (Take(0, text.size())) {
    }
    ASSERT_TRUE(changes.IsEmpty());
    ASSERT_EQ(copy, text) << round;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, LineChangesCopyTest, testing::Range(1U, 9U));

} // namespace
} // namespace portico::richtext
