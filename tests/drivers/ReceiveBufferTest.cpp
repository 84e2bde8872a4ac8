#include "drivers/ReceiveBuffer.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace portico::drivers {
namespace {

class ReceiveBufferTest : public testing::Test {
protected:
  void Fill(std::string_view bytes, bool end) {
    std::copy(bytes.begin(), bytes.end(), buffer.Space());
    buffer.Filled(bytes.size(), end);
  }

  ReceiveBuffer buffer;
};

TEST_F(ReceiveBufferTest, StartsEmpty) {
  EXPECT_TRUE(buffer.Empty());
  EXPECT_EQ(buffer.Unread(), "");
  EXPECT_FALSE(buffer.AtEndOfMessage());
}

TEST_F(ReceiveBufferTest, GivesWhatWasFilledInOrder) {
  Fill("abc", false);
  EXPECT_EQ(buffer.Unread(), "abc");
  buffer.Drop(2);
  EXPECT_EQ(buffer.Unread(), "c");
  buffer.Drop(1);
  EXPECT_TRUE(buffer.Empty());
  EXPECT_FALSE(buffer.AtEndOfMessage());
}

TEST_F(ReceiveBufferTest, TheEndMarkStandsBehindTheLastByte) {
  Fill("ab", true);
  buffer.Drop(1);
  EXPECT_FALSE(buffer.AtEndOfMessage());
  buffer.Drop(1);
  EXPECT_TRUE(buffer.AtEndOfMessage());
  Fill("c", false);
  buffer.Drop(1);
  EXPECT_FALSE(buffer.AtEndOfMessage());
}

TEST_F(ReceiveBufferTest, ClearingDropsBytesAndMark) {
  Fill("ab", true);
  buffer.Clear();
  EXPECT_TRUE(buffer.Empty());
  EXPECT_FALSE(buffer.AtEndOfMessage());
}

TEST_F(ReceiveBufferTest, HoldsItsWholeCapacity) {
  Fill(std::string(ReceiveBuffer::Capacity, 'x'), false);
  EXPECT_EQ(buffer.Unread().size(), ReceiveBuffer::Capacity);
  EXPECT_EQ(buffer.Unread().back(), 'x');
}

} // namespace
} // namespace portico::drivers
