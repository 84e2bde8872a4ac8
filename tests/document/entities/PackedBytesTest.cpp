#include "document/entities/PackedBytes.h"

#include <gtest/gtest.h>

namespace portico {
namespace {

const std::vector<ByteArray> Arrays = {
    {},
    {0},
    {0, 0},
    {'a'},
    {'a', 0},
    {0, 'a'},
    {'a', 0, 'b'},
    {'a', 0, 'b', 0},
    {'a', 0, 'b', 1},
    {'a', 0, 0xFF, 0},
    {'a', 'b'},
    {'1', 0, '2', 0, '3', 0, '4', 0},
    {'1', 0, '2', 0, '3', 0, '4', 0, '5', 0},
    {'1', 0, '2', 1, '3', 0, '4', 0, '5', 0},
    {'1', 0, '2', 0, '3', 0, '4', 0, '5', 1},
    {'1', 0, '2', 0, '3', 0, '4', 0, '5', 0, '6'},
    ByteArray(1001, 0),
};

TEST(PackedBytesTest, GiveBackWhatTheyHold) {
  for (const ByteArray& bytes : Arrays) {
    const PackedBytes packed(bytes);
    EXPECT_EQ(packed.ToBytes(), bytes);
    EXPECT_EQ(packed.Size(), bytes.size());
    EXPECT_TRUE(packed.Equals(bytes));
  }
}

TEST(PackedBytesTest, TellArraysApart) {
  for (std::size_t i = 0; i < Arrays.size(); ++i) {
    for (std::size_t j = 0; j < Arrays.size(); ++j) {
      EXPECT_EQ(PackedBytes(Arrays[i]) == PackedBytes(Arrays[j]), i == j) << i << " and " << j;
      EXPECT_EQ(PackedBytes(Arrays[i]).Equals(Arrays[j]), i == j) << i << " and " << j;
    }
  }
}

TEST(PackedBytesTest, ReadAsTextByWholeUnits) {
  EXPECT_EQ(PackedBytes().ToText(), u"");
  EXPECT_EQ(PackedBytes({'a', 0, 0xFF, 0}).ToText(), u"a\u00FF");
  EXPECT_EQ(PackedBytes({'a', 0, 0x16, 0x04}).ToText(), u"a\u0416");
  EXPECT_EQ(PackedBytes({'a', 0, 'b'}).ToText(), u"a") << "half a unit is no text";
  EXPECT_EQ(PackedBytes({0, 0}).ToText(), String(1, u'\0'));
}

} // namespace
} // namespace portico
