#include "framework/containers/SummedSequence.h"

#include <gtest/gtest.h>

#include <random>

namespace portico {
namespace {

/// Enough items for three levels of branches, taken away again: every level splits, grows, empties and shrinks.
class LargeSequenceTest : public ::testing::Test {
protected:
  static constexpr std::size_t Many = 128 * 64 * 3;

  void CompareEvery(std::size_t step) const {
    for (std::size_t at = 0; at < Sequence.Count(); at += step) {
      ASSERT_EQ(Sequence.SumBefore(at), static_cast<std::int64_t>(2 * at));
      ASSERT_EQ(Sequence.FindSum(static_cast<std::int64_t>(2 * at) + 1), at);
    }
  }

  SummedSequence<std::size_t> Sequence;
};

TEST_F(LargeSequenceTest, AppendedItemsAreFoundByPositionAndSum) {
  for (std::size_t i = 0; i < Many; ++i) Sequence.Insert(i, i, 2);
  CompareEvery(61);
  for (std::size_t i = 0; i < Many; i += 77) EXPECT_EQ(Sequence[i], i);
}

TEST_F(LargeSequenceTest, ItemsInsertedAtTheFrontAreFoundByPositionAndSum) {
  for (std::size_t i = 0; i < Many; ++i) Sequence.Insert(0, i, 2);
  CompareEvery(61);
  for (std::size_t i = 0; i < Many; i += 77) EXPECT_EQ(Sequence[i], Many - 1 - i);
}

TEST_F(LargeSequenceTest, InsertionsInTheMiddleSplitBranchesOfAllLevels) {
  for (std::size_t i = 0; i < Many; ++i) Sequence.Insert(i / 2, i, 2);
  EXPECT_EQ(Sequence.Total(), static_cast<std::int64_t>(2 * Many));
  CompareEvery(61);
}

TEST_F(LargeSequenceTest, RemovalsInAnyOrderLeaveAnEmptyTreeThatCanBeFilledAgain) {
  std::mt19937 random(3);
  for (std::size_t i = 0; i < Many; ++i) Sequence.Insert(i, i, 2);
  while (Sequence.Count() > 0) {
    Sequence.Remove(std::uniform_int_distribution<std::size_t>(0, Sequence.Count() - 1)(random));
    if (Sequence.Count() % 997 == 0) CompareEvery(61);
  }
  EXPECT_EQ(Sequence.Total(), 0);
  for (std::size_t i = 0; i < 1000; ++i) Sequence.Insert(i, i, 2);
  CompareEvery(1);
}

TEST_F(LargeSequenceTest, AQueueOfSteadyLengthStaysInOrder) {
  for (std::size_t i = 0; i < Many; ++i) {
    Sequence.Insert(Sequence.Count(), i, 2);
    if (i < 300) continue;
    ASSERT_EQ(Sequence.Remove(0), i - 300);
  }
  CompareEvery(1);
}

} // namespace
} // namespace portico
