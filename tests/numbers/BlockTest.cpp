#include "numbers/Block.h"

#include "numbers/ReadFrom.h"

#include <gtest/gtest.h>

namespace portico::numbers {
namespace {

using namespace std::string_literals;

std::string BytesOf(StringView answer) { return ReadFrom(ReadBlock(answer)); }

Fault BlockFault(StringView answer) { return FaultIn(ReadBlock(answer)); }

TEST(Block, DefiniteBlockHoldsAsManyBytesAsItSays) {
  EXPECT_EQ(BytesOf(u"#15hello"), "hello");
  EXPECT_EQ(BytesOf(u"#3005hello"), "hello");
  EXPECT_EQ(BytesOf(u"#9000000005hello"), "hello");
  EXPECT_EQ(BytesOf(u"#10"), "");
}

TEST(Block, IndefiniteBlockIsAllThatFollows) {
  EXPECT_EQ(BytesOf(u"#0hello,\n 1\n"), "hello,\n 1\n");
  EXPECT_EQ(BytesOf(u"#0"), "");
}

TEST(Block, ConversationPutsALineEndBehindAnAnswerThatHasNone) {
  EXPECT_EQ(AnswerShownAs(u"+1.5\r\n"), u"+1.5");
  EXPECT_EQ(AnswerShownAs(u"#15hello\r\n"), u"#15hello");
  EXPECT_EQ(AnswerShownAs(u"#0hello\r\n"), u"#0hello");
  EXPECT_EQ(AnswerShownAs(u"one\r\ntwo\r\n"), u"one\r\ntwo");
  EXPECT_EQ(AnswerShownAs(u"\r\n"), u"");
  EXPECT_EQ(AnswerShownAs(u"+1.5"), u"+1.5");
  EXPECT_EQ(AnswerShownAs(u""), u"");
}

TEST(Block, LineEndThatABlockEndsInIsItsOwn) {
  EXPECT_EQ(AnswerShownAs(u"#15abc\r\n"), u"#15abc\r\n");
  EXPECT_EQ(AnswerShownAs(u" #12\r\n"), u" #12\r\n");
  EXPECT_EQ(AnswerShownAs(u"#13abc\r\n"), u"#13abc") << "which is whole without it";
  EXPECT_EQ(AnswerShownAs(u"#16abc\r\n"), u"#16abc") << "which is torn";
  EXPECT_EQ(AnswerShownAs(u"#1\r\n"), u"#1");
  EXPECT_EQ(AnswerShownAs(u"#1\u0135ab\r\n"), u"#1\u0135ab");
}

TEST(Block, WhiteSpaceStandsAroundABlockAndInIt) { EXPECT_EQ(BytesOf(u" \t#15 a\nb \r\n"), " a\nb "); }

TEST(Block, AllBytesComeBackFromTheText) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  EXPECT_EQ(BytesOf(FromCodePage("#3256" + bytes)), bytes);
  EXPECT_EQ(BytesOf(FromCodePage("#0" + bytes)), bytes);
}

TEST(Block, CharacterThatIsNoByteIsToldWithItsPlace) {
  EXPECT_EQ(BlockFault(u"#15he\u0394lo").Place, 5U);
  EXPECT_EQ(BlockFault(u"#15he\u0394lo").Text, u"Character 6 of the block stands for no byte.");
}

TEST(Block, TornBlockIsToldAndNothingIsTakenForIt) {
  EXPECT_EQ(BlockFault(u"#15hell").Text, u"The block is torn: of 5 bytes 4 are there.");
  EXPECT_EQ(BlockFault(u"#15hell").Place, 7U);
  EXPECT_EQ(BlockFault(u"#9999999999abc").Text, u"The block is torn: of 999999999 bytes 3 are there.");
}

TEST(Block, HeaderThatEndsTooSoonIsTold) {
  for (const StringView text : {u"#", u"#2", u"#21", u" #9"}) {
    EXPECT_EQ(BlockFault(text).Text, u"The block ends within its length.") << ToUtf8(text);
    EXPECT_EQ(BlockFault(text).Place, text.size()) << ToUtf8(text);
  }
}

TEST(Block, LengthThatIsNoNumberIsToldWithItsPlace) {
  EXPECT_EQ(BlockFault(u"#3 12").Text, u"The answer is no block: no digit stands at character 3.");
  EXPECT_EQ(BlockFault(u"#H15").Text, u"The answer is no block: no digit stands at character 2.");
  EXPECT_EQ(BlockFault(u"#3 12").Place, 2U);
}

TEST(Block, OtherTextIsNoBlock) {
  for (const StringView text : {u"", u"  ", u"1,2", u"hello#15"}) {
    EXPECT_EQ(BlockFault(text).Text, u"The answer is no block: it has no #.") << ToUtf8(text);
  }
}

TEST(Block, WhatStandsBehindABlockIsTold) {
  EXPECT_EQ(BlockFault(u"#15hello,1").Text, u"Something stands behind the block, at character 9.");
  EXPECT_EQ(BlockFault(u"#15hello,1").Place, 8U);
  EXPECT_EQ(BlockFault(u"#15hello \n;").Place, 10U);
}

TEST(Block, BytesAreFoundWhereTheyStand) {
  const std::string bytes = "#13a\0b\n"s;
  const auto found = ReadFrom(FindBlock(bytes));
  EXPECT_EQ(found, "a\0b"s);
  EXPECT_EQ(found.data(), bytes.data() + 3);
}

std::string AllOf(const std::string& answer) {
  std::string all;
  for (const scpi::Block& block : FindBlocks(answer)) {
    all.append("[").append(block.Bytes).append(block.Whole ? "]" : "...");
  }
  return all;
}

TEST(Block, SeveralAreFoundWhereElementsBegin) {
  EXPECT_EQ(AllOf("#15hello"), "[hello]");
  EXPECT_EQ(AllOf("CURV #15a,#1b,1.5;#11c, #10"), "[a,#1b][c][]");
  EXPECT_EQ(AllOf("#11a#11b"), "[a]") << "nothing begins there";
  EXPECT_EQ(AllOf("#H15,#Q7,#,x#11a"), "");
  EXPECT_EQ(AllOf("#11a,#0b,#11c"), "[a][b,#11c]");
}

TEST(Block, NoneIsFoundInQuotes) {
  EXPECT_EQ(AllOf("\"a,#11b\",#11c"), "[c]");
  EXPECT_EQ(AllOf("'it''s,#11a',#11b"), "[b]");
  EXPECT_EQ(AllOf("\"open,#11a"), "");
}

TEST(Block, OneThatTheAnswerEndsInIsNotWhole) { EXPECT_EQ(AllOf("#11a,#15b"), "[a][b..."); }

TEST(Block, ADigitBehindTheHashTellsABlockFromANumber) {
  for (const StringView text : {u"#15hello", u"#0", u" #9", u"\r\n#1"}) {
    EXPECT_TRUE(LooksLikeBlock(text)) << ToUtf8(text);
  }
  for (const StringView text : {u"", u"#", u"#H1", u"1", u"15#0", u" #", u"\u0123#1"}) {
    EXPECT_FALSE(LooksLikeBlock(text)) << ToUtf8(text);
  }
  EXPECT_FALSE(LooksLikeBlock(StringView(u"#1").substr(0, 1)));
}

} // namespace
} // namespace portico::numbers
