#include "simulator/status/ResponseQueue.h"

#include <gtest/gtest.h>

namespace portico::simulator {
namespace {

using std::chrono::milliseconds;

constexpr TimePoint StartTime{std::chrono::hours(1)};

TEST(ResponseQueue, GivesMessagesInTheirOrderWithLineFeeds) {
  ResponseQueue queue;
  EXPECT_FALSE(queue.Pop(StartTime));
  queue.Push("a", StartTime);
  queue.Push("b", StartTime);
  EXPECT_FALSE(queue.Empty());
  EXPECT_EQ(queue.Pop(StartTime), "a\n");
  EXPECT_EQ(queue.Pop(StartTime), "b\n");
  EXPECT_FALSE(queue.Pop(StartTime));
  EXPECT_TRUE(queue.Empty());
}

TEST(ResponseQueue, ADelayedMessageHoldsThoseBehindIt) {
  ResponseQueue queue;
  queue.Push("a", StartTime + milliseconds(5));
  queue.Push("b", StartTime);
  EXPECT_EQ(queue.NextReady(), StartTime + milliseconds(5));
  EXPECT_FALSE(queue.Pop(StartTime + milliseconds(4)));
  EXPECT_EQ(queue.Pop(StartTime + milliseconds(5)), "a\n");
  EXPECT_EQ(queue.NextReady(), StartTime + milliseconds(5));
  EXPECT_EQ(queue.Pop(StartTime + milliseconds(5)), "b\n");
  EXPECT_FALSE(queue.NextReady());
}

TEST(ResponseQueue, IsFullByCount) {
  ResponseQueue queue;
  for (std::size_t i = 0; i < ResponseQueue::MostMessages; ++i) {
    EXPECT_FALSE(queue.Full());
    queue.Push("a", StartTime);
  }
  EXPECT_TRUE(queue.Full());
  queue.Pop(StartTime);
  EXPECT_FALSE(queue.Full());
}

TEST(ResponseQueue, IsFullBySize) {
  ResponseQueue queue;
  queue.Push(std::string(ResponseQueue::MostBytes - 2, 'x'), StartTime);
  EXPECT_FALSE(queue.Full());
  queue.Push("", StartTime);
  EXPECT_TRUE(queue.Full());
  queue.Clear();
  EXPECT_FALSE(queue.Full());
  EXPECT_TRUE(queue.Empty());
}

TEST(ResponseQueue, CountsWhatWasEverAdded) {
  ResponseQueue queue;
  EXPECT_EQ(queue.Count(), 0U);
  queue.Push("a", StartTime);
  queue.Push("b", StartTime);
  queue.Pop(StartTime);
  EXPECT_EQ(queue.Count(), 2U);
}

TEST(ResponseQueue, AnEndlessMessageFollowsThoseBeforeIt) {
  ResponseQueue queue;
  queue.Push("a", StartTime);
  queue.Push("b", StartTime, true);
  queue.Push("c", StartTime);
  EXPECT_EQ(queue.Pop(StartTime), "a\n");
  EXPECT_EQ(queue.Pop(StartTime), "b");
  const auto piece = queue.Pop(StartTime);
  ASSERT_TRUE(piece);
  EXPECT_FALSE(piece->empty());
  EXPECT_FALSE(queue.Pop(StartTime));
  EXPECT_GT(queue.NextReady(), StartTime);
}

} // namespace
} // namespace portico::simulator
