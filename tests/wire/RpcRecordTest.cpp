#include "wire/RpcRecord.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace portico::wire {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr std::size_t Limit = 8; // bytes of a record

/// Feeds the stream in pieces of the given size until the reader wants no more; answers how many bytes it took.
std::size_t FeedInPieces(RpcRecordReader& reader, std::string_view stream, std::size_t pieceSize) {
  std::size_t taken = 0;
  while (taken < stream.size()) {
    const std::string_view piece = stream.substr(taken, pieceSize);
    const std::size_t count = reader.Feed(piece);
    taken += count;
    if (count < piece.size()) break;
  }
  return taken;
}

/// However the stream is cut, its first record has this content and ends behind so many bytes.
void ExpectRecord(std::string_view stream, std::string_view content, std::size_t length) {
  for (std::size_t pieceSize = 1; pieceSize <= stream.size(); ++pieceSize) {
    RpcRecordReader reader(Limit);
    EXPECT_EQ(FeedInPieces(reader, stream, pieceSize), length) << pieceSize;
    EXPECT_TRUE(reader.Complete()) << pieceSize;
    EXPECT_FALSE(reader.TooLong()) << pieceSize;
    EXPECT_EQ(reader.Content(), content) << pieceSize;
  }
}

void ExpectTooLong(std::string_view stream, std::size_t taken) {
  for (std::size_t pieceSize = 1; pieceSize <= stream.size(); ++pieceSize) {
    RpcRecordReader reader(Limit);
    EXPECT_EQ(FeedInPieces(reader, stream, pieceSize), taken) << pieceSize;
    EXPECT_FALSE(reader.Complete()) << pieceSize;
    EXPECT_TRUE(reader.TooLong()) << pieceSize;
  }
}

TEST(RpcRecordTest, ARecordIsWrittenAsOneFragment) {
  std::string bytes = "before";
  const std::size_t begin = BeginRpcRecord(bytes);
  bytes += "abcd";
  EndRpcRecord(bytes, begin);
  EXPECT_EQ(bytes, "before\x80\0\0\x04"s + "abcd");
}

TEST(RpcRecordTest, ALongRecordsMarkHoldsItsLength) {
  std::string bytes;
  const std::size_t begin = BeginRpcRecord(bytes);
  bytes.append(0x012345, 'x');
  EndRpcRecord(bytes, begin);
  EXPECT_EQ(bytes.substr(0, 5), "\x80\x01\x23\x45x"s);
  EXPECT_EQ(bytes.size(), 0x012349U);
}

TEST(RpcRecordTest, OneFragment) { ExpectRecord("\x80\0\0\4abcdnext"sv, "abcd", 8); }

TEST(RpcRecordTest, FragmentsArePutTogether) { ExpectRecord("\0\0\0\1a\0\0\0\3bcd\x80\0\0\2efnext"sv, "abcdef", 18); }

TEST(RpcRecordTest, FragmentsMayBeEmpty) { ExpectRecord("\0\0\0\0\0\0\0\1a\0\0\0\0\x80\0\0\0next"sv, "a", 17); }

TEST(RpcRecordTest, ARecordMayBeEmpty) { ExpectRecord("\x80\0\0\0next"sv, "", 4); }

TEST(RpcRecordTest, ARecordMayFillTheLimit) {
  ExpectRecord("\x80\0\0\010abcdefghnext"sv, "abcdefgh", 12);
  ExpectRecord("\0\0\0\7abcdefg\x80\0\0\1hnext"sv, "abcdefgh", 16);
}

TEST(RpcRecordTest, AFragmentBeyondTheLimitIsRefusedByItsMark) {
  ExpectTooLong("\x80\0\0\011abcdefghi"sv, 4);
  ExpectTooLong("\xFF\xFF\xFF\xFF"
                "abcd"sv,
                4);
  ExpectTooLong("\x7F\xFF\xFF\xFF"
                "abcd"sv,
                4);
}

TEST(RpcRecordTest, FragmentsBeyondTheLimitAreRefused) {
  ExpectTooLong("\0\0\0\7abcdefg\x80\0\0\2hi"sv, 15);
  ExpectTooLong("\0\0\0\010abcdefgh\0\0\0\1i"sv, 16);
}

TEST(RpcRecordTest, FragmentsWithoutEndNeverCompleteARecord) {
  RpcRecordReader reader(Limit);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(reader.Feed("\0\0\0\0"sv), 4U);
  EXPECT_FALSE(reader.Complete());
  EXPECT_FALSE(reader.TooLong());
  EXPECT_EQ(reader.Content(), "");
}

TEST(RpcRecordTest, ARecordCutOffIsNotComplete) {
  constexpr auto Stream = "\0\0\0\2ab\x80\0\0\2cd"sv;
  for (std::size_t size = 0; size < Stream.size(); ++size) {
    RpcRecordReader reader(Limit);
    EXPECT_EQ(reader.Feed(Stream.substr(0, size)), size);
    EXPECT_FALSE(reader.Complete()) << size;
  }
}

TEST(RpcRecordTest, RecordsFollowEachOther) {
  constexpr auto Stream = "\x80\0\0\3one\0\0\0\1t\x80\0\0\2wo\x80\0\0\0"sv;
  RpcRecordReader reader(Limit);
  std::size_t at = reader.Feed(Stream);
  EXPECT_EQ(reader.Content(), "one");
  EXPECT_EQ(reader.Feed(Stream.substr(at)), 0U);
  reader.Restart();
  EXPECT_FALSE(reader.Complete());
  EXPECT_EQ(reader.Content(), "");
  at += reader.Feed(Stream.substr(at));
  EXPECT_EQ(reader.Content(), "two");
  reader.Restart();
  at += reader.Feed(Stream.substr(at));
  EXPECT_TRUE(reader.Complete());
  EXPECT_EQ(reader.Content(), "");
  EXPECT_EQ(at, Stream.size());
}

TEST(RpcRecordTest, RestartingForgetsAMarkAndARefusal) {
  RpcRecordReader reader(Limit);
  reader.Feed("\xFF\xFF\xFF\xFF"sv);
  EXPECT_TRUE(reader.TooLong());
  reader.Restart();
  EXPECT_FALSE(reader.TooLong());
  reader.Feed("\x80\0"sv);
  reader.Restart();
  reader.Feed("\0\0\0\3ab"sv);
  EXPECT_FALSE(reader.Complete());
  EXPECT_EQ(reader.Content(), "ab");
  reader.Restart();
  EXPECT_EQ(reader.Feed("\x80\0\0\1x"sv), 5U);
  EXPECT_TRUE(reader.Complete());
  EXPECT_EQ(reader.Content(), "x");
}

} // namespace
} // namespace portico::wire
