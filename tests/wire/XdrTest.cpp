#include "wire/Xdr.h"

#include <gtest/gtest.h>
#include <string>

namespace portico::wire {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

enum class Colour : std::int32_t { Red = 3 };

struct Inner {
  std::int32_t Number = 0;
  std::string_view Name;

  static auto Fields(auto& self) { return std::tie(self.Number, self.Name); }
};

struct Outer {
  bool Set = false;
  Inner Middle;
  Colour Paint = {};

  static auto Fields(auto& self) { return std::tie(self.Set, self.Middle, self.Paint); }
};

template <typename T>
std::string Written(const T& value) {
  std::string bytes;
  XdrWriter(bytes).Put(value);
  return bytes;
}

template <typename T>
struct Read {
  bool Good = false;
  T Value = {};
  std::string_view Rest;
};

template <typename T>
Read<T> ReadFrom(std::string_view bytes) {
  XdrReader reader(bytes);
  Read<T> read;
  read.Good = reader.Get(read.Value);
  EXPECT_EQ(read.Good, !reader.Failed());
  read.Rest = reader.Rest();
  return read;
}

/// The value is written as `bytes`, and is what they are read as; whatever follows them stays, and no part of them will
/// do.
template <typename T>
void ExpectBothWays(const T& value, const std::string& bytes) {
  EXPECT_EQ(Written(value), bytes);
  const std::string longer = bytes + "next";
  const auto read = ReadFrom<T>(longer);
  EXPECT_TRUE(read.Good);
  EXPECT_EQ(read.Value, value);
  EXPECT_EQ(read.Rest, "next");
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const std::string part = bytes.substr(0, size);
    const auto cut = ReadFrom<T>(part);
    EXPECT_FALSE(cut.Good) << size;
    EXPECT_EQ(cut.Value, T{}) << size;
    EXPECT_EQ(cut.Rest, "") << size;
  }
}

TEST(XdrTest, NumbersTakeFourBytesMostSignificantFirst) {
  ExpectBothWays<std::uint32_t>(0x0607AF, "\x00\x06\x07\xAF"s);
  ExpectBothWays<std::uint32_t>(0xFFFFFF00, "\xFF\xFF\xFF\x00"s);
  ExpectBothWays<std::int32_t>(-2, "\xFF\xFF\xFF\xFE"s);
  ExpectBothWays<std::int32_t>(0x7FFFFFFF, "\x7F\xFF\xFF\xFF"s);
  ExpectBothWays<std::uint16_t>(0xC001, "\x00\x00\xC0\x01"s);
  ExpectBothWays<std::uint8_t>(0xC8, "\x00\x00\x00\xC8"s);
}

TEST(XdrTest, TruthIsZeroOrOne) {
  ExpectBothWays(false, "\0\0\0\0"s);
  ExpectBothWays(true, "\0\0\0\1"s);
  EXPECT_FALSE(ReadFrom<bool>("\0\0\0\2"sv).Good);
  EXPECT_FALSE(ReadFrom<bool>("\1\0\0\1"sv).Value);
}

TEST(XdrTest, TextIsCountedAndFilledUpWithZeroBytes) {
  ExpectBothWays(""sv, "\0\0\0\0"s);
  ExpectBothWays("a"sv, "\0\0\0\1a\0\0\0"s);
  ExpectBothWays("ab"sv, "\0\0\0\2ab\0\0"s);
  ExpectBothWays("abc"sv, "\0\0\0\3abc\0"s);
  ExpectBothWays("inst"sv, "\0\0\0\4inst"s);
  ExpectBothWays("inst0"sv, "\0\0\0\5inst0\0\0\0"s);
  ExpectBothWays("a\0\n"sv, "\0\0\0\3a\0\n\0"s);
}

TEST(XdrTest, WhatFillsUpIsNotLookedAt) {
  const auto read = ReadFrom<std::string_view>("\0\0\0\1axyznext"sv);
  EXPECT_TRUE(read.Good);
  EXPECT_EQ(read.Value, "a");
  EXPECT_EQ(read.Rest, "next");
}

TEST(XdrTest, ACountBeyondTheBytesFails) {
  for (const std::string_view bytes : {"\xFF\xFF\xFF\xFF"
                                       "abcd"sv,
                                       "\x7F\xFF\xFF\xFF"sv, "\0\0\0\5abcd"sv}) {
    const auto read = ReadFrom<std::string_view>(bytes);
    EXPECT_FALSE(read.Good);
    EXPECT_EQ(read.Value, "");
  }
}

TEST(XdrTest, AShortNumberBeyondItsRangeFails) {
  EXPECT_EQ(ReadFrom<std::uint16_t>("\0\0\xFF\xFF"sv).Value, 65535);
  const auto beyond = ReadFrom<std::uint16_t>("\0\1\0\0"sv);
  EXPECT_FALSE(beyond.Good);
  EXPECT_EQ(beyond.Value, 0);
  EXPECT_FALSE(ReadFrom<std::uint16_t>("\xFF\xFF\xFF\xFF"sv).Good);
}

TEST(XdrTest, AByteMayHaveItsSignExtended) {
  EXPECT_EQ(ReadFrom<std::uint8_t>("\xFF\xFF\xFF\x8A"sv).Value, 0x8A);
  EXPECT_EQ(ReadFrom<std::uint8_t>("\0\0\0\x8A"sv).Value, 0x8A);
  EXPECT_FALSE(ReadFrom<std::uint8_t>("\0\0\1\0"sv).Good);
  const auto below = ReadFrom<std::uint8_t>("\xFF\xFF\xFF\x7F"sv);
  EXPECT_FALSE(below.Good);
  EXPECT_EQ(below.Value, 0);
}

TEST(XdrTest, AnUnnamedNumberOfAnEnumerationIsKept) {
  ExpectBothWays(Colour::Red, "\0\0\0\3"s);
  EXPECT_EQ(static_cast<std::int32_t>(ReadFrom<Colour>("\0\0\0\x17"sv).Value), 23);
}

TEST(XdrTest, ARecordsFieldsStandInItsOrder) {
  const std::string bytes = "\0\0\0\1"
                            "\0\0\0\7"
                            "\0\0\0\2hi\0\0"
                            "\0\0\0\3"s;
  EXPECT_EQ(Written(Outer{true, {7, "hi"}, Colour::Red}), bytes);
  const auto read = ReadFrom<Outer>(bytes);
  EXPECT_TRUE(read.Good);
  EXPECT_TRUE(read.Value.Set);
  EXPECT_EQ(read.Value.Middle.Number, 7);
  EXPECT_EQ(read.Value.Middle.Name, "hi");
  EXPECT_EQ(read.Value.Paint, Colour::Red);
}

TEST(XdrTest, BehindAFailureNothingIsTaken) {
  XdrReader reader("\0\0\0\2\0\0\0\1"sv);
  bool flag = true;
  std::uint32_t number = 5;
  EXPECT_FALSE(reader.Get(flag));
  EXPECT_FALSE(reader.Get(number));
  EXPECT_FALSE(flag);
  EXPECT_EQ(number, 0U);
  EXPECT_EQ(reader.Rest(), "");
}

} // namespace
} // namespace portico::wire
