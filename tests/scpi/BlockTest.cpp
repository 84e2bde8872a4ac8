#include "scpi/Block.h"

#include <gtest/gtest.h>

#include <string>

namespace portico::scpi {
namespace {

/// The block's bytes, an exclamation mark if it is torn, and behind a bar what is left of the text.
std::string Taken(std::string_view text) {
  const auto block = TakeBlock(text);
  if (!block) return "none|" + std::string(text);
  return std::string(block->Bytes) + (block->Whole ? "" : "!") + '|' + std::string(text);
}

TEST(Block, HasAsManyBytesAsItSays) {
  EXPECT_EQ(Taken("#13abcdef"), "abc|def");
  EXPECT_EQ(Taken("#203a\nbcd"), "a\nb|cd");
  EXPECT_EQ(Taken("#10"), "|");
  EXPECT_EQ(Taken("#9000000002xyz"), "xy|z");
}

TEST(Block, WithoutALengthIsAllThatFollows) { EXPECT_EQ(Taken("#0abc\n"), "abc\n|"); }

TEST(Block, EndsWithTheText) {
  EXPECT_EQ(Taken("#15abc"), "abc!|");
  EXPECT_EQ(Taken("#3100"), "!|");
  EXPECT_EQ(Taken("#9999999999a"), "a!|");
}

TEST(Block, WithoutAReadableLengthIsNone) {
  for (const char* text : {"", "#", "#x", "3abc", "#2", "#21", "#2x1abc", "#21xabc", "#1 abc", "#1-abc"}) {
    EXPECT_EQ(Taken(text), "none|" + std::string(text)) << text;
  }
}

} // namespace
} // namespace portico::scpi
