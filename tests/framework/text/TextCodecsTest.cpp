#include "framework/text/text.h"

#include <gtest/gtest.h>

#include <ostream>

namespace portico {
namespace {

TEST(Utf8, RoundTripsSequencesOfEveryLength) {
  const std::string bytes("\x00\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", 20);
  const String withNul(u"\0\x7F\x80\x7FF\x800\xFFFF\xD800\xDC00\xDBFF\xDFFF", 10);
  EXPECT_EQ(ToUtf8(withNul), bytes);
  const Utf8Text read = FromUtf8(bytes);
  EXPECT_FALSE(read.BadByte);
  EXPECT_EQ(read.Text, withNul);
}

TEST(Utf8, EmptyTextIsWellFormed) {
  EXPECT_EQ(ToUtf8(u""), "");
  EXPECT_FALSE(FromUtf8("").BadByte);
  EXPECT_EQ(FromUtf8("").Text, u"");
}

TEST(Utf8, AnUnpairedSurrogateIsWrittenAsReplacementCharacter) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(ToUtf8(String{0xD83D}), replacement);
  EXPECT_EQ(ToUtf8(String{0xDE00}), replacement);
  EXPECT_EQ(ToUtf8(String{0xD83D, u'a'}), replacement + "a");
  EXPECT_EQ(ToUtf8(String{0xDE00, 0xD83D}), replacement + replacement);
  EXPECT_EQ(ToUtf8(String{0xD83D, 0xD83D, 0xDE00}), replacement + "\xF0\x9F\x98\x80");
}

TEST(Utf8, APairIsAHighAndALowSurrogateUpToTheEndsOfBothRanges) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(ToUtf8(String{0xD800, 0xDBFF}), replacement + replacement);
  EXPECT_EQ(ToUtf8(String{0xD800, 0xE000}), replacement + "\xEE\x80\x80");
  EXPECT_EQ(ToUtf8(String{0xD7FF, 0xDC00}), "\xED\x9F\xBF" + replacement);
  EXPECT_EQ(ToUtf8(String{0xDFFF, 0xDC00}), replacement + replacement);
}

struct Malformed {
  const char* What;
  std::string Bytes;
  std::size_t At;
};

void PrintTo(const Malformed& sequence, std::ostream* out) { *out << sequence.What; }

class MalformedUtf8 : public ::testing::TestWithParam<Malformed> {};

TEST_P(MalformedUtf8, IsReportedWithThePositionOfItsFirstByte) {
  EXPECT_EQ(FromUtf8(GetParam().Bytes).BadByte, GetParam().At);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, MalformedUtf8,
    ::testing::Values(Malformed{"LoneContinuation", "ab\x80", 2}, Malformed{"TwoBytesCutShort", "a\xC3", 1},
                      Malformed{"ThreeBytesCutShort", "\xE2\x82", 0}, Malformed{"FourBytesCutShort", "\xF0\x9F\x98", 0},
                      Malformed{"NoContinuation", "\xC3\xA4\xC3(", 2}, Malformed{"BadThirdByte", "x\xE2\x82(", 1},
                      Malformed{"BadFourthByte", "\xF0\x9F\x98(", 0}, Malformed{"OverlongTwo", "\xC0\xAF", 0},
                      Malformed{"OverlongTwoC1", "\xC1\xBF", 0}, Malformed{"OverlongThree", "\xE0\x9F\xBF", 0},
                      Malformed{"OverlongFour", "\xF0\x8F\xBF\xBF", 0}, Malformed{"HighSurrogate", "a\xED\xA0\x80", 1},
                      Malformed{"LowSurrogate", "\xED\xBF\xBF", 0}, Malformed{"BeyondUnicode", "\xF4\x90\x80\x80", 0},
                      Malformed{"LeadF5", "\xF5\x80\x80\x80", 0}, Malformed{"ByteFE", "abc\xFE", 3},
                      Malformed{"ByteFF", "\xFF", 0}, Malformed{"Latin1", "gr\xFC\xDF", 2}),
    [](const auto& sequence) { return std::string(sequence.param.What); });

TEST(Utf8, ABadByteIsReadAsReplacementCharacterAndCutsNothing) {
  EXPECT_EQ(FromUtf8("a\xFFz").Text, u"a\uFFFDz");
  EXPECT_EQ(FromUtf8("\xC3\xA4\xC3").Text, u"\u00E4\uFFFD");
  EXPECT_EQ(FromUtf8("\xFF\xFEz\xFD").Text, u"\uFFFD\uFFFDz\uFFFD");
  EXPECT_EQ(FromUtf8("\xE2\x82z").Text, u"\uFFFD\uFFFDz"); // one for each byte
}

TEST(Utf8, TheFirstOfSeveralBadBytesIsReported) { EXPECT_EQ(FromUtf8("ab\xFFz\xFE").BadByte, 2U); }

TEST(Utf8, NeighboursOfMalformedSequencesAreWellFormed) {
  for (const char* bytes :
       {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    const Utf8Text read = FromUtf8(bytes);
    EXPECT_FALSE(read.BadByte);
    EXPECT_EQ(ToUtf8(read.Text), bytes);
  }
}

TEST(CodePage, All256BytesGoBothWays) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes.push_back(static_cast<char>(byte));
  const String text = FromCodePage(bytes);
  EXPECT_EQ(text.size(), 256U);
  EXPECT_EQ(ToCodePage(text), bytes);
  EXPECT_FALSE(FindOutsideCodePage(text));
}

TEST(CodePage, TheUpperControlsAreThoseOfWindows1252) {
  EXPECT_EQ(FromCodePage("\x80\x82\x83\x84\x85\x86\x87"), u"\u20AC\u201A\u0192\u201E\u2026\u2020\u2021");
  EXPECT_EQ(FromCodePage("\x88\x89\x8A\x8B\x8C\x8E"), u"\u02C6\u2030\u0160\u2039\u0152\u017D");
  EXPECT_EQ(FromCodePage("\x91\x92\x93\x94\x95\x96\x97"), u"\u2018\u2019\u201C\u201D\u2022\u2013\u2014");
  EXPECT_EQ(FromCodePage("\x98\x99\x9A\x9B\x9C\x9E\x9F"), u"\u02DC\u2122\u0161\u203A\u0153\u017E\u0178");
}

TEST(CodePage, ItsFiveUndefinedBytesStandForThemselves) {
  const String text = {0x81, 0x8D, 0x8F, 0x90, 0x9D};
  EXPECT_EQ(FromCodePage("\x81\x8D\x8F\x90\x9D"), text);
}

TEST(CodePage, LatinLettersAndTheMarkersOfTheHistoryStandForThemselves) {
  EXPECT_EQ(ToCodePage(u"\u00A0\u00A9\u00AE\u00B5\u00FF"), "\xA0\xA9\xAE\xB5\xFF");
}

TEST(CodePage, ACharacterOutsideBecomesOneQuestionMark) {
  EXPECT_EQ(ToCodePage(u"5 k\u03A9"), "5 k?");
  EXPECT_EQ(ToCodePage(String{0x80}), "?");
}

TEST(CodePage, ASurrogatePairBecomesOneQuestionMark) {
  EXPECT_EQ(ToCodePage(u"a\U0001F600b"), "a?b");
  EXPECT_EQ(ToCodePage(String{0xD83D}), "?");
  EXPECT_EQ(ToCodePage(String{0xD83D, u'x'}), "?x");
  EXPECT_EQ(ToCodePage(String{0xDE00, 0xD83D}), "??");
}

TEST(CodePage, FindsTheFirstCharacterOutside) {
  EXPECT_EQ(FindOutsideCodePage(u"ab\u20AC\u03A9\u03A9"), 3U);
  EXPECT_EQ(FindOutsideCodePage(u"ab\U0001F600"), 2U);
  EXPECT_FALSE(FindOutsideCodePage(u""));
}

TEST(TextAsData, IsLittleEndianWithoutTerminatorOrMark) {
  EXPECT_EQ(ToBytes(u"A\u20AC"), (ByteArray{0x41, 0x00, 0xAC, 0x20}));
  EXPECT_EQ(ToBytes(u""), ByteArray{});
}

TEST(TextAsData, ReadsBackUnitByUnit) {
  const String text = {u'a', 0, 0xD83D, 0xFFFF};
  EXPECT_EQ(FromBytes(ToBytes(text)), text);
}

TEST(TextAsData, AnOddLastByteIsDropped) {
  EXPECT_EQ(FromBytes({0x41, 0x00, 0x42}), u"A");
  EXPECT_EQ(FromBytes({0x41}), u"");
}

TEST(FromAscii, WidensEachCharacter) { EXPECT_EQ(FromAscii("Bench 7"), u"Bench 7"); }

} // namespace
} // namespace portico
