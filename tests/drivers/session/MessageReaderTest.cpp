#include "drivers/session/MessageReader.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>

namespace portico::drivers {
namespace {

/// A stream and how its first message is to be cut off.
struct Case {
  std::string name;
  Termination termination;
  std::string stream;
  /// The message's length with its terminator; 0 if the stream does not complete it.
  std::size_t length;
  std::size_t terminator;
};

void PrintTo(const Case& testCase, std::ostream* stream) { *stream << testCase.name; }

std::vector<Case> Cases() {
  const auto automatic = Termination::Auto;
  return {
      {"Line", automatic, "1.5\nnext\n", 4, 1},
      {"CarriageReturnBelongsToTheTerminator", automatic, "1.5\r\nnext\n", 5, 2},
      {"OnlyOneCarriageReturnDoes", automatic, "1.5\r\r\n", 6, 2},
      {"Empty", automatic, "\nx", 1, 1},
      {"EmptyWithCarriageReturn", automatic, "\r\n", 2, 2},
      {"Nothing", automatic, "", 0, 0},
      {"NoEnd", automatic, "1.5", 0, 0},
      {"CarriageReturnAlone", automatic, "1.5\r", 0, 0},
      {"LineFeedKeepsTheCarriageReturn", Termination::LineFeed, "1\r\nx", 3, 1},
      {"CrLf", Termination::CarriageReturnLineFeed, "a\nb\rc\r\nx", 7, 2},
      {"CrLfOnly", Termination::CarriageReturnLineFeed, "a\nb\n", 0, 0},
      {"CrLfAtOnce", Termination::CarriageReturnLineFeed, "\n\r\n", 3, 2},
      {"Cr", Termination::CarriageReturn, "a\nb\r\n", 4, 1},
      {"LfCr", Termination::LineFeedCarriageReturn, "a\rb\n\n\rx", 6, 2},
      {"Block", automatic, "#15ab\ncd\nx", 9, 1},
      {"BlockThatEndsInCarriageReturn", automatic, "#13ab\r\nx", 7, 1},
      {"BlockAndCrLf", automatic, "#13ab\r\r\nx", 8, 2},
      {"BlockThatLooksLikeCrLf", Termination::CarriageReturnLineFeed, "#12\r\n\r\n", 7, 2},
      {"BlockWithCrAsTerminator", Termination::CarriageReturn, "#12\r\r\r", 6, 1},
      {"BlockWithTwoLengthDigits", automatic, "#211\n\n\n\n\n\n\n\n\n\n\n\n", 16, 1},
      {"EmptyBlock", automatic, "#10\nx", 4, 1},
      {"BlockBehindComma", automatic, "1,#11\n\nx", 7, 1},
      {"BlockBehindSemicolon", automatic, "1;#11\n\nx", 7, 1},
      {"BlockBehindHeader", automatic, ":CURV #11\n\nx", 11, 1},
      {"BlockBehindBlanks", automatic, ",  #11\n\n", 8, 1},
      {"TwoBlocks", automatic, "#11\n,#12\n\n\nx", 11, 1},
      {"ElementBehindBlock", automatic, "#11\n,5\nx", 7, 1},
      {"BlockHoldsBlockMarks", automatic, "#16#15\n\n\n\nx", 10, 1},
      {"HashInsideAnElementIsPlain", automatic, "ab#15\nxxxxx\n", 6, 1},
      {"UnfinishedBlock", automatic, "#15ab\n", 0, 0},
      {"Hexadecimal", automatic, "#HFF\nx", 5, 1},
      {"Octal", automatic, "#Q17,#B01\nx", 10, 1},
      {"HashAlone", automatic, "#\nx", 2, 1},
      {"HashAndComma", automatic, "#,#11\n\nx", 7, 1},
      {"LengthIsNoNumber", automatic, "#3\nx", 3, 1},
      {"LengthBreaksOff", automatic, "#31x\nx", 5, 1},
      {"LengthBreaksOffAtComma", automatic, "#31,#11\n\nx", 9, 1},
      {"IndefiniteBlock", automatic, "#0a,#15b\r\nx", 10, 2},
      {"HashInString", automatic, "\"a #15\"\nx", 8, 1},
      {"HashBehindDoubledQuote", automatic, "\"a\"\" #15\"\nx", 10, 1},
      {"HashInOtherString", automatic, "'a,\"#15'\nx", 9, 1},
      {"BlockBehindString", automatic, "\"a\",#11\n\nx", 9, 1},
      {"LoneQuoteDoesNotHideTheEnd", automatic, "\"open\nx", 6, 1},
      {"QuoteInsideAnElementIsPlain", automatic, "it's #11\n\nx", 10, 1},
      {"ErrorText", automatic, "-113,\"Undefined header; it's #3 bad\"\nx", 37, 1},
      {"ZeroBytes", automatic, std::string("a\0b\n", 4), 4, 1},
  };
}

/// The same, with the mark behind the whole stream.
std::vector<Case> MarkedCases() {
  const auto automatic = Termination::Auto;
  return {
      {"Line", automatic, "1.5\n", 4, 1},
      {"CarriageReturnBelongsToTheTerminator", automatic, "1.5\r\n", 5, 2},
      {"WithoutTerminator", automatic, "1.5", 3, 0},
      {"Empty", automatic, "", 0, 0},
      {"LineFeedAlone", automatic, "\n", 1, 1},
      {"LineFeedsInside", automatic, "a\nb\r\nc\n\n", 8, 1},
      {"CarriageReturnAlone", automatic, "1\r", 2, 0},
      {"Block", automatic, "#15ab\ncd\n", 9, 1},
      {"BlockWithoutTerminator", automatic, "#13ab\n", 6, 0},
      {"BlockThatEndsInCarriageReturn", automatic, "#13ab\r\n", 7, 1},
      {"BlockAndCrLf", automatic, "#13ab\r\r\n", 8, 2},
      {"UnfinishedBlock", automatic, "#15ab\n", 6, 0},
      {"IndefiniteBlock", automatic, "#0a\nb\r\n", 7, 2},
      {"HashInString", automatic, "\"#14\n\"\n", 7, 1},
      {"MarkBeforeTheTerminatorThatWasAskedFor", Termination::CarriageReturn, "1.5\n", 4, 0},
      {"TheTerminatorThatWasAskedFor", Termination::CarriageReturn, "1.5\r", 4, 1},
  };
}

class MessageReaderCase : public testing::TestWithParam<Case> {
protected:
  /// Feeds the pieces, checks the reader after the last, and answers how many bytes it took.
  static void Check(const std::vector<std::string_view>& pieces) {
    const Case& expected = GetParam();
    MessageReader reader(expected.termination);
    std::size_t taken = 0;
    for (const std::string_view piece : pieces) {
      const bool complete = reader.Complete();
      const std::size_t count = reader.Feed(piece);
      taken += count;
      ASSERT_TRUE(reader.Complete() || count == piece.size());
      ASSERT_TRUE(!complete || count == 0);
    }
    EXPECT_EQ(reader.Complete(), expected.length > 0);
    EXPECT_EQ(taken, expected.length > 0 ? expected.length : expected.stream.size());
    EXPECT_EQ(reader.TerminatorLength(), expected.terminator);
  }
};

std::string CaseName(const testing::TestParamInfo<Case>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Streams, MessageReaderCase, testing::ValuesIn(Cases()), CaseName);

TEST_P(MessageReaderCase, InOnePiece) { Check({GetParam().stream}); }

TEST_P(MessageReaderCase, ByteByByte) {
  std::vector<std::string_view> pieces;
  const std::string_view stream = GetParam().stream;
  for (std::size_t i = 0; i < stream.size(); ++i) pieces.push_back(stream.substr(i, 1));
  Check(pieces);
}

TEST_P(MessageReaderCase, SplitAnywhere) {
  const std::string_view stream = GetParam().stream;
  for (std::size_t first = 0; first <= stream.size(); ++first) {
    for (std::size_t second = first; second <= stream.size(); ++second) {
      SCOPED_TRACE(std::to_string(first) + " " + std::to_string(second));
      Check({stream.substr(0, first), stream.substr(first, second - first), stream.substr(second)});
    }
  }
}

class MarkedMessageCase : public testing::TestWithParam<Case> {};

INSTANTIATE_TEST_SUITE_P(Streams, MarkedMessageCase, testing::ValuesIn(MarkedCases()), CaseName);

TEST_P(MarkedMessageCase, SplitAnywhere) {
  const Case& expected = GetParam();
  const std::string_view stream = expected.stream;
  for (std::size_t first = 0; first <= stream.size(); ++first) {
    for (std::size_t second = first; second <= stream.size(); ++second) {
      SCOPED_TRACE(std::to_string(first) + " " + std::to_string(second));
      MessageReader reader(expected.termination, Marks::Ends);
      std::size_t taken = 0;
      for (const std::string_view piece :
           {stream.substr(0, first), stream.substr(first, second - first), stream.substr(second)}) {
        taken += reader.Feed(piece);
      }
      EXPECT_EQ(taken, expected.length);
      reader.End();
      EXPECT_TRUE(reader.Complete());
      EXPECT_EQ(reader.TerminatorLength(), expected.terminator);
    }
  }
}

TEST(MessageReader, ABlockOfTheGreatestLengthIsAwaited) {
  MessageReader reader(Termination::Auto);
  EXPECT_EQ(reader.Feed("#9999999999"), 11u);
  const std::string data(100'000, '\n');
  EXPECT_EQ(reader.Feed(data), data.size());
  EXPECT_FALSE(reader.Complete());
}

TEST(MessageReader, TheTransportsEndCompletesAMessageWithoutTerminator) {
  MessageReader reader(Termination::Auto);
  EXPECT_EQ(reader.Feed("1.5"), 3u);
  EXPECT_FALSE(reader.Complete());
  reader.End();
  EXPECT_TRUE(reader.Complete());
  EXPECT_EQ(reader.TerminatorLength(), 0u);
  EXPECT_EQ(reader.Feed("\n"), 0u);
}

TEST(MessageReader, TheTransportsEndBehindATerminatorChangesNothing) {
  MessageReader reader(Termination::Auto);
  EXPECT_EQ(reader.Feed("1.5\r\n"), 5u);
  reader.End();
  EXPECT_EQ(reader.TerminatorLength(), 2u);
}

} // namespace
} // namespace portico::drivers
