#include "simulator/status/ErrorQueue.h"

#include <gtest/gtest.h>

#include <utility>

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
  queue.Push(ErrorCode::UndefinedHeader);
  queue.Push(ErrorCode::DataOutOfRange);
  EXPECT_EQ(queue.Size(), 2U);
  EXPECT_EQ(queue.Pop(), "-113,\"Undefined header\"");
  EXPECT_EQ(queue.Pop(), "-222,\"Data out of range\"");
  EXPECT_EQ(queue.Pop(), "0,\"No error\"");
}

TEST(ErrorQueue, GivesAllAtOnce) {
  ErrorQueue queue;
  queue.Push(ErrorCode::SyntaxError);
  queue.Push(ErrorCode::InitIgnored);
  EXPECT_EQ(queue.PopAll(), "-102,\"Syntax error\",-213,\"Init ignored\"");
  EXPECT_EQ(queue.Size(), 0U);
}

TEST(ErrorQueue, TheLastPlaceTellsOfTheOverflow) {
  ErrorQueue queue;
  for (std::size_t i = 0; i < ErrorQueue::Capacity + 5; ++i) queue.Push(ErrorCode::UndefinedHeader);
  EXPECT_EQ(queue.Size(), ErrorQueue::Capacity);
  for (std::size_t i = 0; i + 1 < ErrorQueue::Capacity; ++i) EXPECT_EQ(queue.Pop(), "-113,\"Undefined header\"");
  EXPECT_EQ(queue.Pop(), "-350,\"Queue overflow\"");
  EXPECT_EQ(queue.Size(), 0U);
}

TEST(ErrorQueue, ClearForgetsThem) {
  ErrorQueue queue;
  queue.Push(ErrorCode::SyntaxError);
  queue.Clear();
  EXPECT_EQ(queue.Pop(), "0,\"No error\"");
}

TEST(ErrorText, IsTheStandards) {
  const std::pair<int, const char*> expected[] = {
      {-101, "Invalid character"},       {-108, "Parameter not allowed"},
      {-109, "Missing parameter"},       {-114, "Header suffix out of range"},
      {-131, "Invalid suffix"},          {-161, "Invalid block data"},
      {-224, "Illegal parameter value"}, {-350, "Queue overflow"},
      {-363, "Input buffer overrun"},    {-410, "Query INTERRUPTED"},
      {-430, "Query DEADLOCKED"},        {-440, "Query UNTERMINATED after indefinite response"},
  };
  for (const auto& [number, text] : expected) EXPECT_EQ(ErrorText(static_cast<ErrorCode>(number)), text);
}

TEST(ErrorText, AnUnknownNumberHasNoneAndTheDevicesOwnHaveOurs) {
  EXPECT_EQ(ErrorText(static_cast<ErrorCode>(-199)), "");
  EXPECT_EQ(ErrorText(static_cast<ErrorCode>(42)), "Simulated device error");
}

TEST(ScpiErrorException, CarriesItsCode) {
  const ScpiError error(ErrorCode::MissingParameter);
  EXPECT_EQ(error.Code(), ErrorCode::MissingParameter);
  EXPECT_STREQ(error.what(), "Missing parameter");
}

} // namespace
} // namespace portico::simulator
