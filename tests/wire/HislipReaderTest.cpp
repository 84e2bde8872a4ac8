#include "wire/HislipReader.h"

#include "wire/Bytes.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace portico::wire {
namespace {

struct Message {
  HislipHeader header;
  std::string payload;
  bool tooLarge = false;

  bool operator==(const Message&) const = default;
};

/// What the stream says when it comes in pieces of `size` bytes; a message that is not whole is left out.
std::vector<Message> ReadIn(HislipReader& reader, std::string_view stream, std::size_t size) {
  std::vector<Message> messages;
  std::string payload;
  for (std::size_t at = 0; at < stream.size(); at += size) {
    std::string_view bytes = stream.substr(at, size);
    while (const auto piece = reader.Next(bytes)) {
      payload += piece->Payload;
      if (!piece->Last) continue;
      messages.push_back({piece->Header, payload, piece->TooLarge});
      payload.clear();
    }
  }
  return messages;
}

std::vector<Message> ReadAll(std::string_view stream, std::uint64_t longest = 1000) {
  HislipReader reader(longest);
  return ReadIn(reader, stream, stream.size());
}

const std::string SomeData = Bytes("4853 06 00 FFFFFF00 0000000000000005") + "HSabc";
const std::string EmptyEnd = Bytes("4853 07 00 FFFFFF00 0000000000000000");
const std::string Busy = Bytes("4853 02 04 00000000 0000000000000004") + "busy";

TEST(HislipReaderTest, MessagesAreReadHoweverTheStreamIsCut) {
  const std::string stream = SomeData + EmptyEnd + Busy + Busy + EmptyEnd;
  const Message end = {{HislipType::DataEnd, 0, 0xFFFFFF00, 0}, ""};
  const Message busy = {{HislipType::FatalError, 4, 0, 4}, "busy"};
  const std::vector<Message> expected = {{{HislipType::Data, 0, 0xFFFFFF00, 5}, "HSabc"}, end, busy, busy, end};
  for (std::size_t size = 1; size <= stream.size(); ++size) {
    SCOPED_TRACE(size);
    HislipReader reader(1000);
    EXPECT_EQ(ReadIn(reader, stream, size), expected);
  }
}

TEST(HislipReaderTest, DataGoOnAsTheyCome) {
  HislipReader reader(1000);
  const std::string first = SomeData.substr(0, 18);
  std::string_view bytes = first;
  const auto piece = reader.Next(bytes);
  ASSERT_TRUE(piece);
  EXPECT_EQ(piece->Payload, "HS");
  EXPECT_EQ(piece->Payload.data(), first.data() + 16);
  EXPECT_FALSE(piece->Last);
  EXPECT_TRUE(bytes.empty());
}

TEST(HislipReaderTest, OtherPayloadsComeWhole) {
  HislipReader reader(1000);
  const std::string first = Busy.substr(0, 18);
  std::string_view bytes = first;
  EXPECT_FALSE(reader.Next(bytes));
  EXPECT_TRUE(bytes.empty());
  bytes = "sy and more";
  const auto piece = reader.Next(bytes);
  ASSERT_TRUE(piece);
  EXPECT_EQ(piece->Payload, "busy");
  EXPECT_EQ(bytes, " and more");
}

TEST(HislipReaderTest, OfALongTextTheFirst256BytesAreKept) {
  const std::string text(256, 'x');
  const std::string stream = Bytes("4853 02 00 00000000 0000000000000102") + text + "yz" + EmptyEnd;
  for (const std::size_t size : {std::size_t{1}, std::size_t{100}, stream.size()}) {
    SCOPED_TRACE(size);
    HislipReader reader(1000);
    const auto messages = ReadIn(reader, stream, size);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].payload, text);
    EXPECT_EQ(messages[0].header.PayloadLength, 258u);
    EXPECT_EQ(messages[1].header.Type, HislipType::DataEnd);
  }
}

TEST(HislipReaderTest, TheLongestPayloadIsTaken) {
  const auto messages = ReadAll(SomeData, 5);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].payload, "HSabc");
  EXPECT_FALSE(messages[0].tooLarge);
}

TEST(HislipReaderTest, WhatIsLongerIsToldAndPassedOver) {
  const std::vector<Message> expected = {{{HislipType::Data, 0, 0xFFFFFF00, 5}, "", true},
                                         {{HislipType::DataEnd, 0, 0xFFFFFF00, 0}, ""}};
  EXPECT_EQ(ReadAll(SomeData + EmptyEnd, 4), expected);
}

TEST(HislipReaderTest, AnAbsurdLengthIsToldAtTheHeader) {
  for (const char* length : {"FFFFFFFFFFFFFFFF", "8000000000000000", "00000001 00000000"}) {
    SCOPED_TRACE(length);
    const auto messages = ReadAll(Bytes("4853 03 00 00000000") + Bytes(length));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_TRUE(messages[0].tooLarge);
  }
}

TEST(HislipReaderTest, AWrongHeaderBreaksTheStream) {
  HislipReader reader(1000);
  const std::string stream = EmptyEnd + "SSH-2.0-something" + EmptyEnd;
  EXPECT_EQ(ReadIn(reader, stream, stream.size()).size(), 1u);
  EXPECT_TRUE(reader.Broken());
  EXPECT_TRUE(ReadIn(reader, EmptyEnd, EmptyEnd.size()).empty());
}

TEST(HislipReaderTest, HalfAHeaderIsAwaited) {
  HislipReader reader(1000);
  EXPECT_TRUE(ReadIn(reader, EmptyEnd.substr(0, 15), 15).empty());
  EXPECT_FALSE(reader.Broken());
  EXPECT_EQ(ReadIn(reader, EmptyEnd.substr(15), 1).size(), 1u);
}

} // namespace
} // namespace portico::wire
