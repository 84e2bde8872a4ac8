#include "simulator/language/MessageFramer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace portico::simulator {
namespace {

constexpr std::size_t Limit = 64;

struct Framed {
  std::vector<std::string> messages;
  int overruns = 0;
};

Framed Frame(std::string_view bytes, std::size_t pieceSize) {
  Framed framed;
  MessageFramer framer(Limit);
  while (!bytes.empty()) {
    std::string_view piece = bytes.substr(0, pieceSize);
    bytes.remove_prefix(piece.size());
    while (!piece.empty()) {
      const auto outcome = framer.Feed(piece);
      if (outcome == MessageFramer::Outcome::Complete) framed.messages.push_back(framer.TakeMessage());
      if (outcome == MessageFramer::Outcome::Overrun) ++framed.overruns;
    }
  }
  return framed;
}

/// In pieces of every size the outcome is the same.
void ExpectMessages(std::string_view bytes, const std::vector<std::string>& expected) {
  for (std::size_t size = 1; size <= bytes.size(); ++size) {
    const Framed framed = Frame(bytes, size);
    EXPECT_EQ(framed.messages, expected) << "in pieces of " << size;
    EXPECT_EQ(framed.overruns, 0);
  }
}

TEST(MessageFramer, ALineFeedEndsAMessage) {
  ExpectMessages("*IDN?\n", {"*IDN?"});
  ExpectMessages("A\nB\r\n\nC", {"A", "B\r", ""});
}

TEST(MessageFramer, ALineFeedInAStringDoesToo) {
  ExpectMessages("T \"a\nb\"\nU\n", {"T \"a", "b\"", "U"});
  ExpectMessages("T 'a\nU\n", {"T 'a", "U"});
}

TEST(MessageFramer, ADoubledQuoteGoesOnWithTheString) {
  ExpectMessages("T \"a\"\" #19\"\nU\n", {"T \"a\"\" #19\"", "U"}); // in the string a # begins no block
  ExpectMessages("T ''''\nU\n", {"T ''''", "U"});
}

TEST(MessageFramer, TheOtherQuoteInAStringIsText) { ExpectMessages("T \"it's\"\nU\n", {"T \"it's\"", "U"}); }

TEST(MessageFramer, ALineFeedInABlockDoesNot) {
  ExpectMessages("D #15ab\ncd\nU\n", {"D #15ab\ncd", "U"});
  ExpectMessages("D 1,#212abcdefghij\n\n,2\nU\n", {"D 1,#212abcdefghij\n\n,2", "U"});
}

TEST(MessageFramer, AQuoteInABlockIsData) { ExpectMessages("D #13\"''\nU\n", {"D #13\"''", "U"}); }

TEST(MessageFramer, AnEmptyBlockIsOver) { ExpectMessages("D #10\nU\n", {"D #10", "U"}); }

TEST(MessageFramer, AnIndefiniteBlockEndsAtTheLineFeed) { ExpectMessages("D #0a\"b'#15\nU\n", {"D #0a\"b'#15", "U"}); }

TEST(MessageFramer, ANonDecimalNumberIsNoBlock) { ExpectMessages("D #HFF\nD #B1\n", {"D #HFF", "D #B1"}); }

TEST(MessageFramer, ABrokenBlockHeaderSwallowsNothing) {
  ExpectMessages("D #\nU\n", {"D #", "U"});
  ExpectMessages("D #2x\nU\n", {"D #2x", "U"});
}

TEST(MessageFramer, OutsideADataElementQuotesAndHashesAreStray) {
  ExpectMessages("it's\nU\n", {"it's", "U"});
  ExpectMessages("'a\nU\n", {"'a", "U"});
  ExpectMessages("A;#15\nU\n", {"A;#15", "U"});
  ExpectMessages("T a'b\nU\n", {"T a'b", "U"});
}

TEST(MessageFramer, AfterASemicolonAHeaderComesFirst) { ExpectMessages("T \"a\"; 'b\nU\n", {"T \"a\"; 'b", "U"}); }

TEST(MessageFramer, AMessageOfTheLimitFits) {
  const std::string message(Limit, 'x');
  ExpectMessages(message + "\nU\n", {message, "U"});
}

TEST(MessageFramer, ALongerOneIsDiscardedToItsEnd) {
  const std::string bytes = std::string(Limit + 1, 'x') + "\nU\n";
  for (std::size_t size = 1; size <= bytes.size(); ++size) {
    const Framed framed = Frame(bytes, size);
    EXPECT_EQ(framed.messages, std::vector<std::string>{"U"}) << size;
    EXPECT_EQ(framed.overruns, 1) << size;
  }
}

TEST(MessageFramer, ALongBlockIsDiscardedWithTheLineFeedsInIt) {
  const std::string bytes = "D #3200" + std::string(200, '\n') + "\nU\n";
  for (const std::size_t size : {std::size_t{1}, std::size_t{7}, bytes.size()}) {
    const Framed framed = Frame(bytes, size);
    EXPECT_EQ(framed.messages, std::vector<std::string>{"U"}) << size;
    EXPECT_EQ(framed.overruns, 1) << size;
  }
}

TEST(MessageFramer, EveryOverrunIsTold) {
  const std::string tooLong = std::string(Limit * 2, 'x') + '\n';
  EXPECT_EQ(Frame(tooLong + tooLong + "U\n", 1000).overruns, 2);
}

} // namespace
} // namespace portico::simulator
