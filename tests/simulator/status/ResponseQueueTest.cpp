#include "simulator/status/ResponseQueue.h"

#include <gtest/gtest.h>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

constexpr TimePoint kStart{std::chrono::hours(1)};

TEST(ResponseQueue, GivesMessagesInTheirOrderWithLineFeeds) {
  ResponseQueue queue;
  EXPECT_FALSE(queue.Pop(kStart));
  queue.Push("a", kStart);
  queue.Push("b", kStart);
  EXPECT_FALSE(queue.Empty());
  EXPECT_EQ(queue.Pop(kStart), "a\n");
  EXPECT_EQ(queue.Pop(kStart), "b\n");
  EXPECT_FALSE(queue.Pop(kStart));
  EXPECT_TRUE(queue.Empty());
}

TEST(ResponseQueue, ADelayedMessageHoldsThoseBehindIt) {
  ResponseQueue queue;
  queue.Push("a", kStart + milliseconds(5));
  queue.Push("b", kStart);
  EXPECT_EQ(queue.NextReady(), kStart + milliseconds(5));
  EXPECT_FALSE(queue.Pop(kStart + milliseconds(4)));
  EXPECT_EQ(queue.Pop(kStart + milliseconds(5)), "a\n");
  EXPECT_EQ(queue.NextReady(), kStart + milliseconds(5));
  EXPECT_EQ(queue.Pop(kStart + milliseconds(5)), "b\n");
  EXPECT_FALSE(queue.NextReady());
}

TEST(ResponseQueue, IsFullByCount) {
  ResponseQueue queue;
  for (std::size_t i = 0; i < ResponseQueue::MostMessages; ++i) {
    EXPECT_FALSE(queue.Full());
    queue.Push("a", kStart);
  }
  EXPECT_TRUE(queue.Full());
  queue.Pop(kStart);
  EXPECT_FALSE(queue.Full());
}

TEST(ResponseQueue, IsFullBySize) {
  ResponseQueue queue;
  queue.Push(std::string(ResponseQueue::MostBytes - 2, 'x'), kStart);
  EXPECT_FALSE(queue.Full());
  queue.Push("", kStart);
  EXPECT_TRUE(queue.Full());
  queue.Clear();
  EXPECT_FALSE(queue.Full());
  EXPECT_TRUE(queue.Empty());
}

TEST(ResponseQueue, CountsWhatWasEverAdded) {
  ResponseQueue queue;
  EXPECT_EQ(queue.Count(), 0U);
  queue.Push("a", kStart);
  queue.Push("b", kStart);
  queue.Pop(kStart);
  EXPECT_EQ(queue.Count(), 2U);
}

TEST(ResponseQueue, AnEndlessMessageFollowsThoseBeforeIt) {
  ResponseQueue queue;
  queue.Push("a", kStart);
  queue.Push("b", kStart, true);
  queue.Push("c", kStart);
  EXPECT_EQ(queue.Pop(kStart), "a\n");
  EXPECT_EQ(queue.Pop(kStart), "b");
  const auto piece = queue.Pop(kStart);
  ASSERT_TRUE(piece);
  EXPECT_FALSE(piece->empty());
  EXPECT_FALSE(queue.Pop(kStart));
  EXPECT_GT(queue.NextReady(), kStart);
}

} // namespace
} // namespace portico::simulator
