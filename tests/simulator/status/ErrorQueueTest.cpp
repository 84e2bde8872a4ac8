#include "simulator/status/ErrorQueue.h"

#include <gtest/gtest.h>

namespace portico::simulator {
namespace {

TEST(ErrorQueue, AnEmptyOneSaysSo) {
  ErrorQueue queue;
  EXPECT_EQ(queue.Size(), 0U);
  EXPECT_EQ(queue.Pop(), "0,\"No error\"");
  EXPECT_EQ(queue.PopAll(), "0,\"No error\"");
}

TEST(ErrorQueue, GivesTheOldestFirst) {
  ErrorQueue queue;
  queue.Push(scpi::ErrorCode::UndefinedHeader);
  queue.Push(scpi::ErrorCode::DataOutOfRange);
  EXPECT_EQ(queue.Size(), 2U);
  EXPECT_EQ(queue.Pop(), "-113,\"Undefined header\"");
  EXPECT_EQ(queue.Pop(), "-222,\"Data out of range\"");
  EXPECT_EQ(queue.Pop(), "0,\"No error\"");
}

TEST(ErrorQueue, GivesAllAtOnce) {
  ErrorQueue queue;
  queue.Push(scpi::ErrorCode::SyntaxError);
  queue.Push(scpi::ErrorCode::InitIgnored);
  EXPECT_EQ(queue.PopAll(), "-102,\"Syntax error\",-213,\"Init ignored\"");
  EXPECT_EQ(queue.Size(), 0U);
}

TEST(ErrorQueue, TheLastPlaceTellsOfTheOverflow) {
  ErrorQueue queue;
  for (std::size_t i = 0; i < ErrorQueue::Capacity + 5; ++i) queue.Push(scpi::ErrorCode::UndefinedHeader);
  EXPECT_EQ(queue.Size(), ErrorQueue::Capacity);
  for (std::size_t i = 0; i + 1 < ErrorQueue::Capacity; ++i) EXPECT_EQ(queue.Pop(), "-113,\"Undefined header\"");
  EXPECT_EQ(queue.Pop(), "-350,\"Queue overflow\"");
  EXPECT_EQ(queue.Size(), 0U);
}

TEST(ErrorQueue, ClearForgetsThem) {
  ErrorQueue queue;
  queue.Push(scpi::ErrorCode::SyntaxError);
  queue.Clear();
  EXPECT_EQ(queue.Pop(), "0,\"No error\"");
}

} // namespace
} // namespace portico::simulator
