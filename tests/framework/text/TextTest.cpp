#include "framework/text/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace portico {
namespace {

TEST(Text, TrimRemovesBlanksAtBothEnds) {
  EXPECT_EQ(TrimLeft(u"  a b  "), u"a b  ");
  EXPECT_EQ(TrimRight(u"  a b  "), u"  a b");
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
}

TEST(Text, TrimOfBlanksOnlyIsEmpty) {
  EXPECT_EQ(TrimLeft(u"   "), u"");
  EXPECT_EQ(TrimRight(u"   "), u"");
  EXPECT_EQ(Trim(u""), u"");
}

TEST(Text, TrimKeepsTabsAndLineEnds) { EXPECT_EQ(Trim(u" \ta\r\n "), u"\ta\r\n"); }

TEST(Text, CaseFoldsForLatinGreekAndCyrillic) {
  EXPECT_EQ(FoldCase(u'A'), u'a');
  EXPECT_EQ(FoldCase(u'Z'), u'z');
  EXPECT_EQ(FoldCase(u'\u00C4'), u'\u00E4');
  EXPECT_EQ(FoldCase(u'\u0178'), u'\u00FF');
  EXPECT_EQ(FoldCase(u'\u0100'), u'\u0101');
  EXPECT_EQ(FoldCase(u'\u0141'), u'\u0142');
  EXPECT_EQ(FoldCase(u'\u0160'), u'\u0161');
  EXPECT_EQ(FoldCase(u'\u017D'), u'\u017E');
  EXPECT_EQ(FoldCase(u'\u03A9'), u'\u03C9');
  EXPECT_EQ(FoldCase(u'\u0416'), u'\u0436');
  EXPECT_EQ(FoldCase(u'\u0401'), u'\u0451');
}

TEST(Text, CaseFoldsReachBothEndsOfEachAlphabet) {
  using Pair = std::pair<char16_t, char16_t>;
  for (const auto& [capital, small] :
       {Pair{0x00C0, 0x00E0}, Pair{0x00DE, 0x00FE}, Pair{0x0136, 0x0137}, Pair{0x0139, 0x013A}, Pair{0x0147, 0x0148},
        Pair{0x014A, 0x014B}, Pair{0x0176, 0x0177}, Pair{0x0179, 0x017A}, Pair{0x0391, 0x03B1}, Pair{0x03AB, 0x03CB},
        Pair{0x0400, 0x0450}, Pair{0x040F, 0x045F}, Pair{0x0410, 0x0430}, Pair{0x042F, 0x044F}}) {
    EXPECT_EQ(FoldCase(capital), small) << static_cast<unsigned>(capital);
    EXPECT_EQ(FoldCase(small), small) << static_cast<unsigned>(small);
  }
}

TEST(Text, CaseFoldsLeaveOtherUnitsAlone) {
  for (const char16_t unit :
       {u'@', u'[', u'a', u'0', u'\u00BF', u'\u00D7', u'\u00DF', u'\u00F7', u'\u0130', u'\u0138', u'\u0149', u'\u017F',
        u'\u0390', u'\u03A2', u'\u03AC', u'\u03FF', u'\u0460', u'\u2126', u'\xD83D'}) {
    EXPECT_EQ(FoldCase(unit), unit) << static_cast<unsigned>(unit);
  }
}

TEST(Text, ToUpperChangesLettersOnly) {
  EXPECT_EQ(ToUpper(u"*idn? az{`"), u"*IDN? AZ{`");
  EXPECT_EQ(ToUpper(u"\u00E4\u00FE\u00F7\u00DF\u00FF"), u"\u00C4\u00DE\u00F7\u00DF\u00FF");
}

TEST(Text, EqualNoCaseComparesWholeTexts) {
  EXPECT_TRUE(EqualNoCase(u"WriteCmd", u"writecmd"));
  EXPECT_TRUE(EqualNoCase(u"\u00C4\u03A9", u"\u00E4\u03C9"));
  EXPECT_TRUE(EqualNoCase(u"", u""));
  EXPECT_FALSE(EqualNoCase(u"WriteCmd", u"WriteCmd "));
  EXPECT_FALSE(EqualNoCase(u"[", u"{"));
}

TEST(Text, HashNoCaseAgreesForTextsThatDifferInCaseOnly) {
  EXPECT_EQ(HashNoCase()(u"InstrumentName"), HashNoCase()(u"INSTRUMENTNAME"));
  EXPECT_NE(HashNoCase()(u"InstrumentName"), HashNoCase()(u"InstrumentNames"));
  EXPECT_NE(HashNoCase()(u"ab"), HashNoCase()(u"ba"));
  EXPECT_EQ(HashNoCase()(u"Gr\u00D6\u039E\u0416e"), HashNoCase()(u"gR\u00F6\u03BE\u0436E"));
}

TEST(Text, ReplaceAllGoesOnBehindTheReplacement) {
  EXPECT_EQ(ReplaceAll(u"a||b||", u"||", u"\r\n"), u"a\r\nb\r\n");
  EXPECT_EQ(ReplaceAll(u"aaa", u"a", u"aa"), u"aaaaaa");
  EXPECT_EQ(ReplaceAll(u"|||", u"||", u"-"), u"-|");
  EXPECT_EQ(ReplaceAll(u"abc", u"x", u"y"), u"abc");
  EXPECT_EQ(ReplaceAll(u"abc", u"b", u""), u"ac");
}

TEST(Text, ReplaceAllOfNothingChangesNothing) { EXPECT_EQ(ReplaceAll(u"abc", u"", u"x"), u"abc"); }

TEST(Text, SplitGivesAtLeastOnePiece) {
  EXPECT_EQ(Split(u"", u","), (std::vector<StringView>{u""}));
  EXPECT_EQ(Split(u"abc", u","), (std::vector<StringView>{u"abc"}));
}

TEST(Text, SplitKeepsEmptyPiecesAndBlanks) {
  EXPECT_EQ(Split(u",a, b,", u","), (std::vector<StringView>{u"", u"a", u" b", u""}));
  EXPECT_EQ(Split(u"a\r\nb\rc", u"\r\n"), (std::vector<StringView>{u"a", u"b\rc"}));
}

TEST(Text, WholeNumbersAreWrittenInDecimal) {
  EXPECT_EQ(ToText(std::int64_t{0}), u"0");
  EXPECT_EQ(ToText(std::int64_t{-2147221504}), u"-2147221504");
  EXPECT_EQ(ToText(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
}

TEST(Text, FractionsAreWrittenAsShortAsTheyReadBack) {
  EXPECT_EQ(ToText(0.1), u"0.1");
  EXPECT_EQ(ToText(-2.5), u"-2.5");
  EXPECT_EQ(ToText(1.0 / 3.0), u"0.3333333333333333");
  EXPECT_EQ(ReadNumber(ToText(1e300)), 1e300);
}

TEST(Text, FractionsWithWholeValuesReadAsWholeNumbers) {
  EXPECT_EQ(ToText(3.0), u"3");
  EXPECT_EQ(ToText(100000.0), u"100000");
  EXPECT_EQ(ToText(-20000000.0), u"-20000000");
}

TEST(Text, HexadecimalIsUpperCaseWithoutLeadingZeros) {
  EXPECT_EQ(ToHexText(0), u"0");
  EXPECT_EQ(ToHexText(10), u"A");
  EXPECT_EQ(ToHexText(0x80041450), u"80041450");
  EXPECT_EQ(ToHexText(0xFFFFFFFF), u"FFFFFFFF");
}

TEST(Text, ReadNumberTakesSignsFractionsExponentsAndBlanks) {
  EXPECT_EQ(ReadNumber(u"0"), 0.0);
  EXPECT_EQ(ReadNumber(u"  42  "), 42.0);
  EXPECT_EQ(ReadNumber(u"+7"), 7.0);
  EXPECT_EQ(ReadNumber(u"-1.5"), -1.5);
  EXPECT_EQ(ReadNumber(u".5"), 0.5);
  EXPECT_EQ(ReadNumber(u"-.5"), -0.5);
  EXPECT_EQ(ReadNumber(u"5."), 5.0);
  EXPECT_EQ(ReadNumber(u"1e3"), 1000.0);
  EXPECT_EQ(ReadNumber(u"1E-3"), 0.001);
}

TEST(Text, ReadNumberRefusesWhatIsNotOneNumber) {
  for (const StringView text : {u"",  u"  ", u"abc", u"1a",   u"1 2", u"- 1",  u"--1", u"+-1",   u"-+1", u"++1",   u"-",
                                u"+", u".",  u"1e",  u"0x10", u"inf", u"-inf", u"nan", u"1e400", u"\t1", u"\u0661"}) {
    EXPECT_FALSE(ReadNumber(text)) << ToUtf8(text);
  }
}

} // namespace
} // namespace portico
