// Find and Span.

#include "contract/RichTextBench.h"

namespace portico::test {
namespace {

class RichTextSearchContract : public RichTextContract {
protected:
  /// What Find answers, checked against what it selects.
  std::int32_t Find(StringView text, std::int32_t start, std::int32_t end = -1) {
    Select(1, 1);
    const std::int32_t before = box->SelStart();
    const std::int32_t found = box->Find(text, start, end);
    EXPECT_EQ(box->SelStart(), found < 0 ? before : found);
    EXPECT_EQ(box->SelLength(), found < 0 ? 1 : static_cast<std::int32_t>(text.size()));
    if (found >= 0) {
      EXPECT_EQ(box->SelText(), text);
    }
    return found;
  }
  String Spanned(std::int32_t start, std::int32_t length, StringView set) {
    Select(start, length);
    box->Span(set);
    EXPECT_EQ(box->SelStart(), start);
    return box->SelText();
  }
};

INSTANTIATE_TEST_SUITE_P(AllBoxes, RichTextSearchContract, testing::ValuesIn(AllRichTextBenches()), RichTextBenchName);

TEST_P(RichTextSearchContract, FindSelectsTheFirstMatch) {
  Load(u"abcabc");
  EXPECT_EQ(Find(u"bc", 0), 1);
  EXPECT_EQ(Find(u"bc", 1), 1);
  EXPECT_EQ(Find(u"bc", 2), 4);
  EXPECT_EQ(Find(u"bc", 5), -1);
}

TEST_P(RichTextSearchContract, FindComparesExactly) {
  Load(u"aBc");
  EXPECT_EQ(Find(u"b", 0), -1);
  EXPECT_EQ(Find(u"B", 0), 1);
}

TEST_P(RichTextSearchContract, FindFindsLineEnds) {
  Load(u"ab\r\n\r\ncd");
  EXPECT_EQ(Find(u"\r\n", 0), 2);
  EXPECT_EQ(Find(u"\r\n", 2), 2);
  EXPECT_EQ(Find(u"\r\n", 3), 4);
  EXPECT_EQ(Find(u"\r\n", 5), -1);
  EXPECT_EQ(Find(u"\r\n\r\n", 0), 2);
  EXPECT_EQ(Find(u"b\r\n\r\nc", 0), 1);
  EXPECT_EQ(Find(u"\r\n\r\n\r\n", 0), -1);
  EXPECT_EQ(Find(u"a\r\n", 0), -1);
  EXPECT_EQ(Find(u"ab\r\nc", 0), -1);
}

TEST_P(RichTextSearchContract, FindAcrossLinesIsNotMisledByABeginning) {
  Load(u"a\r\nb\r\na\r\nc");
  EXPECT_EQ(Find(u"a\r\nc", 0), 6);
  EXPECT_EQ(Find(u"\r\na\r\nc", 0), 4);
}

TEST_P(RichTextSearchContract, FindFindsNoHalfOfALineEnd) {
  Load(u"ab\r\ncd");
  EXPECT_EQ(Find(u"\n", 0), -1);
  EXPECT_EQ(Find(u"\r", 0), -1);
  EXPECT_EQ(Find(u"b\r", 0), -1);
  EXPECT_EQ(Find(u"\nc", 0), -1);
}

TEST_P(RichTextSearchContract, FindInALastLineWithoutLineEnd) {
  Load(u"ab");
  EXPECT_EQ(Find(u"\r\n", 0), -1);
  EXPECT_EQ(Find(u"b", 0), 1);
}

TEST_P(RichTextSearchContract, FindEndsWhereItIsTold) {
  Load(u"ab\r\ncd");
  EXPECT_EQ(Find(u"\r\n", 0, 4), 2);
  EXPECT_EQ(Find(u"\r\n", 0, 3), -1);
  EXPECT_EQ(Find(u"\r\n", 2, 4), 2);
  EXPECT_EQ(Find(u"d", 0, 6), 5);
  EXPECT_EQ(Find(u"d", 0, 5), -1);
  EXPECT_EQ(Find(u"a", 0, 0), -1);
  EXPECT_EQ(Find(u"d", 0, 1000), 5);
}

TEST_P(RichTextSearchContract, FindLooksAtTheLineEndInFrontOfTheCaret) {
  Load(u"\r\nab");
  for (const auto& [start, expected] : {std::pair{0, -1}, {1, -1}, {2, 0}, {3, -1}, {4, -1}}) {
    EXPECT_EQ(Find(u"\r\n", start - 2, start), expected) << start;
  }
}

TEST_P(RichTextSearchContract, FindWithNothingToFind) {
  Load(u"abc");
  EXPECT_EQ(Find(u"", 0), -1);
  EXPECT_EQ(Find(u"a", 3), -1);
  EXPECT_EQ(Find(u"a", 1000), -1);
  EXPECT_EQ(Find(u"a", -1000), 0);
  Load(u"");
  EXPECT_EQ(box->Find(u"a", 0), -1);
}

TEST_P(RichTextSearchContract, SpanExtendsTheEndOverTheSet) {
  Load(u"aabbcc");
  EXPECT_EQ(Spanned(0, 0, u"ab"), u"aabb");
  EXPECT_EQ(Spanned(0, 3, u"b"), u"aabb");
  EXPECT_EQ(Spanned(0, 1, u"b"), u"a");
  EXPECT_EQ(Spanned(4, 0, u"c"), u"cc");
  EXPECT_EQ(Spanned(0, 0, u""), u"");
}

TEST_P(RichTextSearchContract, SpanPassesALineEndIfTheSetHasBothItsUnits) {
  Load(u"ab\r\n\r\ncd\r\n");
  EXPECT_EQ(Spanned(0, 2, u"\r\n"), u"ab\r\n\r\n");
  EXPECT_EQ(Spanned(2, 0, u"\n\r"), u"\r\n\r\n");
  EXPECT_EQ(Spanned(0, 1, u"\r\nb"), u"ab\r\n\r\n");
  EXPECT_EQ(Spanned(6, 2, u"\r\n"), u"cd\r\n");
  EXPECT_EQ(Spanned(0, 2, u"x"), u"ab");
}

TEST_P(RichTextSearchContract, SpanStopsAtALineEndThatTheSetHasHalfOf) {
  Load(u"ab\r\n\r\ncd\r\n");
  EXPECT_EQ(Spanned(0, 2, u"\n"), u"ab");
  EXPECT_EQ(Spanned(0, 4, u"\n"), u"ab\r\n");
  EXPECT_EQ(Spanned(2, 0, u"\n"), u"");
  EXPECT_EQ(Spanned(0, 2, u"\r"), u"ab");
  EXPECT_EQ(Spanned(0, 1, u"b\n"), u"ab");
}

TEST_P(RichTextSearchContract, SpanAtTheEndOfTheTextLeavesTheSelection) {
  Load(u"ab");
  EXPECT_EQ(Spanned(2, 0, u"\n"), u"");
  EXPECT_EQ(box->SelLength(), 0);
  EXPECT_EQ(Spanned(0, 2, u"\nab"), u"ab");
  EXPECT_EQ(Spanned(0, 0, u"\nab"), u"ab");
  EXPECT_EQ(box->SelLength(), 2);
}

} // namespace
} // namespace portico::test
