#include "framework/containers/SummedSequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace portico {
namespace {

struct Item {
  int Name;
  Chunk<Item>* Home = nullptr;
};
void SetHome(Item& item, Chunk<Item>* home) { item.Home = home; }

/// The same operations on plain vectors.
class SummedSequenceTest : public ::testing::Test {
protected:
  void Insert(std::size_t at, std::int64_t length) {
    Names.insert(Names.begin() + static_cast<std::ptrdiff_t>(at), Next);
    Lengths.insert(Lengths.begin() + static_cast<std::ptrdiff_t>(at), length);
    Sequence.Insert(at, {Next++}, length);
  }
  void Remove(std::size_t at) {
    EXPECT_EQ(Sequence.Remove(at).Name, Names[at]);
    Names.erase(Names.begin() + static_cast<std::ptrdiff_t>(at));
    Lengths.erase(Lengths.begin() + static_cast<std::ptrdiff_t>(at));
  }
  void SetLength(std::size_t at, std::int64_t length) {
    Sequence.SetLength(at, length);
    Lengths[at] = length;
  }
  std::int64_t SumBefore(std::size_t at) const {
    return std::accumulate(Lengths.begin(), Lengths.begin() + static_cast<std::ptrdiff_t>(at), std::int64_t{0});
  }
  std::size_t FindSum(std::int64_t sum) const {
    std::size_t at = 0;
    for (std::int64_t total = 0; at < Lengths.size() && (total += Lengths[at]) <= sum;) ++at;
    return at;
  }
  void Compare(std::size_t at) const {
    ASSERT_EQ(Sequence.Count(), Names.size());
    EXPECT_EQ(Sequence.Total(), SumBefore(Names.size()));
    EXPECT_EQ(Sequence.SumBefore(at), SumBefore(at));
    EXPECT_EQ(Sequence.FindSum(SumBefore(at)), FindSum(SumBefore(at)));
    EXPECT_EQ(Sequence.FindSum(SumBefore(at) + 1), FindSum(SumBefore(at) + 1));
    if (at == Names.size()) return;
    const Item& item = Sequence[at];
    EXPECT_EQ(item.Name, Names[at]);
    EXPECT_EQ(Sequence.LengthAt(at), Lengths[at]);
    EXPECT_EQ(Sequence.PositionIn(*item.Home, [&](const Item& one) { return one.Name == item.Name; }), at);
  }
  void CompareAll() const {
    for (std::size_t at = 0; at <= Names.size(); ++at) Compare(at);
  }

  SummedSequence<Item> Sequence;
  std::vector<int> Names;
  std::vector<std::int64_t> Lengths;
  int Next = 0;
};

TEST_F(SummedSequenceTest, AnEmptySequenceHasNoLengthAndFindsNothing) {
  EXPECT_EQ(Sequence.Count(), 0u);
  EXPECT_EQ(Sequence.Total(), 0);
  EXPECT_EQ(Sequence.SumBefore(0), 0);
  EXPECT_EQ(Sequence.FindSum(0), 0u);
}

TEST_F(SummedSequenceTest, FindSumPassesOverItemsWithoutLength) {
  for (const std::int64_t length : {0, 3, 0, 0, 2, 0}) Insert(Names.size(), length);
  EXPECT_EQ(Sequence.FindSum(0), 1u);
  EXPECT_EQ(Sequence.FindSum(2), 1u);
  EXPECT_EQ(Sequence.FindSum(3), 4u);
  EXPECT_EQ(Sequence.FindSum(5), 6u);
  CompareAll();
}

TEST_F(SummedSequenceTest, SumsLengthsOverMoreThan32Bits) {
  for (int i = 0; i < 4; ++i) Insert(Names.size(), 0x7FFFFFFF);
  EXPECT_EQ(Sequence.Total(), std::int64_t{4} * 0x7FFFFFFF);
  EXPECT_EQ(Sequence.FindSum(std::int64_t{3} * 0x7FFFFFFF), 3u);
}

TEST_F(SummedSequenceTest, AppendedItemsStandInOrder) {
  for (std::int64_t i = 0; i < 1000; ++i) Insert(Names.size(), i % 7);
  CompareAll();
}

TEST_F(SummedSequenceTest, InsertionAtTheFrontSplitsChunks) {
  for (std::int64_t i = 0; i < 1000; ++i) Insert(0, i % 7);
  CompareAll();
}

TEST_F(SummedSequenceTest, RemovalAtTheFrontLeavesTheRest) {
  for (std::int64_t i = 0; i < 1500; ++i) Insert(Names.size(), i % 7);
  while (Names.size() > 5) Remove(0);
  CompareAll();
  while (!Names.empty()) Remove(0);
  for (std::int64_t i = 0; i < 300; ++i) Insert(Names.size(), 1);
  CompareAll();
}

TEST_F(SummedSequenceTest, ClearedSequenceBeginsAnew) {
  for (std::int64_t i = 0; i < 1000; ++i) Insert(Names.size(), i % 7);
  Sequence.Clear();
  EXPECT_EQ(Sequence.Count(), 0u);
  EXPECT_EQ(Sequence.Total(), 0);
  Names.clear();
  Lengths.clear();
  for (std::int64_t i = 0; i < 300; ++i) Insert(0, i % 7);
  CompareAll();
}

TEST_F(SummedSequenceTest, BehavesAsPlainVectorsUnderRandomOperations) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t bound) {
    return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
  };
  for (int phase = 0; phase < 6; ++phase) {
    const std::size_t insertions = phase % 2 == 0 ? 8 : 2; // of ten: the sequence grows, then shrinks
    for (int step = 0; step < 1500; ++step) {
      const auto length = static_cast<std::int64_t>(below(5));
      if (Names.empty() || below(10) < insertions) {
        Insert(below(3) == 0 ? Names.size() : below(Names.size() + 1), length);
      } else if (below(4) == 0) {
        SetLength(below(Names.size()), length);
      } else {
        Remove(below(Names.size()));
      }
      Compare(below(Names.size() + 1));
      if (HasFailure()) return;
    }
    CompareAll();
  }
}

} // namespace
} // namespace portico
