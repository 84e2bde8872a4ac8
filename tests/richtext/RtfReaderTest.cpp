#include "richtext/RtfText.h"

namespace portico::richtext::test {
namespace {

TEST(RtfReaderTest, WhatDoesNotBeginAsAFragmentIsPlain) {
  for (const StringView source :
       {u"", u"abc", u"\\rtf1", u"{rtf1 a}", u"{\\rt a}", u" {\\rtf1 a}", u"{\\RTF1 a}", u"\\{}"}) {
    EXPECT_EQ(Joined(ReadRtf(source, Base())), source);
  }
  EXPECT_EQ(Joined(ReadRtf(u"a\r\nb\rc\nd", Base())), u"a\r\nb\r\nc\r\nd");
  EXPECT_EQ(ReadRtf(u"ab", Base()).front().Runs, FormatRuns(3, Base().Character));
}

TEST(RtfReaderTest, AnEncodedTextLosesItsOwnLineEndAndGetsOne) {
  const String header = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 ";
  EXPECT_EQ(header.size(), 34U);
  const FormattedText text = ReadRtf(header + u"A\r\n\\par }\r\n", Base());
  ASSERT_EQ(text.size(), 2U);
  EXPECT_EQ(text[0].Text, u"A");
  EXPECT_EQ(text[0].Runs, FormatRuns(2, Base().Character));
  EXPECT_EQ(text[0].Paragraph, Base().Paragraph);
  EXPECT_EQ(text[1].Text, u"");
  EXPECT_EQ(text[1].Runs, FormatRuns(1, Base().Character));
}

TEST(RtfReaderTest, RawUnitsStandForThemselves) {
  String text;
  for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
    const auto raw = static_cast<char16_t>(unit);
    if (StringView(u"\r\n\\{}").find(raw) == StringView::npos) text += raw;
  }
  EXPECT_EQ(TextOf(text), text);
}

TEST(RtfReaderTest, RawLineEndsAreDropped) {
  EXPECT_EQ(TextOf(u"a\r\nb\rc\nd"), u"abcd");
  EXPECT_EQ(TextOf(u"a\\b\r\n c"), u"a c"); // they end a word, too
}

TEST(RtfReaderTest, LineEnds) {
  EXPECT_EQ(TextOf(u"a\\par b\\line c\\sect d\\row e"), u"a\r\nb\r\nc\r\nd\r\ne");
  EXPECT_EQ(TextOf(u"a\\par"), u"a\r\n");
  EXPECT_EQ(TextOf(u"a\\\nb\\\rc"), u"a\r\nb\r\nc");
  EXPECT_EQ(TextOf(u"a\\u13?b\\u10?c\\'0d d\\'0a"), u"a\r\nb\r\nc\r\n d\r\n");
}

TEST(RtfReaderTest, ABlankEndsAWord) {
  EXPECT_EQ(TextOf(u"a\\b  c"), u"a c");
  EXPECT_EQ(TextOf(u"a\\b1 c"), u"ac");
  EXPECT_EQ(TextOf(u"a\\b1-c"), u"a-c");
  EXPECT_EQ(TextOf(u"a\\b-c"), u"a-c");
  EXPECT_EQ(TextOf(u"a\\b;c"), u"a;c");
}

TEST(RtfReaderTest, EscapedSyntax) { EXPECT_EQ(TextOf(u"\\\\\\{\\}"), u"\\{}"); }

TEST(RtfReaderTest, Bytes) {
  EXPECT_EQ(TextOf(u"\\'41\\'e4\\'E4\\'80\\'81\\'00x"), String(u"A\u00E4\u00E4\u20AC\u0081") + u'\0' + u"x");
  EXPECT_EQ(TextOf(u"a\\'4"), u"a4");
  EXPECT_EQ(TextOf(u"a\\'zzb"), u"azzb");
  EXPECT_EQ(TextOf(u"a\\'g4b\\'4gb"), u"ag4b4gb");
  EXPECT_EQ(TextOf(u"a\\'"), u"a");
}

TEST(RtfReaderTest, UnicodeUnits) {
  EXPECT_EQ(TextOf(u"\\u8364?x"), u"\u20ACx");
  EXPECT_EQ(TextOf(u"\\u-10179?\\u-8704?x"), u"\U0001F600x");
  EXPECT_EQ(TextOf(u"\\u55357?x"), String(1, char16_t{0xD83D}) + u"x");
  EXPECT_EQ(TextOf(u"\\u65?\\u-1?x"), String(u"A") + char16_t{0xFFFF} + u"x");
  EXPECT_EQ(TextOf(u"\\u?x"), String(1, u'\0') + u"x");
}

TEST(RtfReaderTest, WhatStandsForAUnicodeUnitIsSkipped) {
  EXPECT_EQ(TextOf(u"\\uc0\\u65 x"), u"Ax");
  EXPECT_EQ(TextOf(u"\\uc2\\u65 ??x"), u"Ax");
  EXPECT_EQ(TextOf(u"\\uc2\\u65\\'3f\\'3fx"), u"Ax");
  EXPECT_EQ(TextOf(u"\\uc2\\u65\\tab\\{x"), u"Ax");
  EXPECT_EQ(TextOf(u"\\uc3\\u65 ?\r\n?\\~x"), u"Ax");
  EXPECT_EQ(TextOf(u"\\uc9\\u65 ?{x}y"), u"Axy"); // a brace ends it
  EXPECT_EQ(TextOf(u"\\uc9\\u65 {\\u66 ?}x"), u"ABx");
  EXPECT_EQ(TextOf(u"\\uc-5\\u65 x"), u"Ax");
  EXPECT_EQ(TextOf(u"{\\uc2 }\\u65 ?x"), u"Ax");
  EXPECT_EQ(TextOf(u"\\uc99999999999\\u65 xyz"), u"A");
}

TEST(RtfReaderTest, SpecialCharacters) {
  EXPECT_EQ(TextOf(u"a\\tab b\\cell c\\~d\\_e\\-f"), u"a\tb\tc\u00A0d\u2011ef");
  EXPECT_EQ(TextOf(u"\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote"),
            u"\u2014\u2013\u2022\u2018\u2019\u201C\u201D");
}

TEST(RtfReaderTest, BinaryDataIsSkipped) {
  EXPECT_EQ(TextOf(u"a\\bin3 {}\\b"), u"ab");
  EXPECT_EQ(TextOf(u"a\\bin0 b"), u"ab");
  EXPECT_EQ(TextOf(u"a\\bin-3 b"), u"ab");
  EXPECT_EQ(TextOf(u"a\\bin99999999999 b"), u"a");
}

TEST(RtfReaderTest, UnknownWordsHaveNoEffect) {
  EXPECT_EQ(TextOf(u"a\\foo b\\bar12 c\\PAR d\\parx e"), u"abcde");
  EXPECT_EQ(TextOf(u"a\\|b\\:c\\*d"), u"abcd");
}

TEST(RtfReaderTest, UnknownDestinationsAreSkippedWhole) {
  EXPECT_EQ(TextOf(u"a{\\*\\generator x{y}\\par\\'41\\u65?;}b"), u"ab");
  EXPECT_EQ(TextOf(u"a{\\*\\foo{\\b{\\fonttbl z;}}x}b"), u"ab");
  EXPECT_EQ(TextOf(u"a{\\foo x}b"), u"axb");
  EXPECT_EQ(TextOf(u"a{\\*\\b x}b"), u"axb"); // known, so no destination
  EXPECT_EQ(TextOf(u"a{\\* x}b"), u"a xb");
  EXPECT_EQ(TextOf(u"a{\\*x\\foo y}b"), u"axyb");
}

TEST(RtfReaderTest, DestinationsWithoutTextOfTheirsAreSkipped) {
  for (const StringView word :
       {u"stylesheet", u"info", u"pict", u"object", u"header", u"headerl", u"headerr", u"headerf", u"footer",
        u"footerl", u"footerr", u"footerf", u"footnote", u"pntext", u"pntxtb"}) {
    EXPECT_EQ(TextOf(u"a{\\" + String(word) + u" x\\par{y}}b"), u"ab");
  }
}

TEST(RtfReaderTest, BracesThatAreLeftOpenAreClosedAtTheEnd) {
  EXPECT_EQ(Joined(ReadRtf(u"{\\rtf1 a{b{c", Base())), u"abc");
  EXPECT_EQ(Joined(ReadRtf(u"{\\rtf1 a{\\i b\\par }\r\n", Base())), u"ab\r\n");
  EXPECT_EQ(Joined(ReadRtf(u"{\\rtf", Base())), u"");
  EXPECT_EQ(Joined(ReadRtf(u"{\\rtf1 a\\", Base())), u"a");
}

TEST(RtfReaderTest, BehindTheOutermostGroupNothingIsRead) {
  EXPECT_EQ(Joined(ReadRtf(u"{\\rtf1 a}b\\par }\r\n", Base())), u"a");
  EXPECT_EQ(Joined(ReadRtf(u"{\\rtf1 a}{\\rtf1 b}", Base())), u"a");
}

TEST(RtfReaderTest, NestingHasNoLimit) {
  const std::size_t depth = 1000000;
  EXPECT_EQ(TextOf(String(depth, u'{') + u"a" + String(depth, u'}') + u"b"), u"ab");
  EXPECT_EQ(TextOf(String(depth, u'{') + u"a"), u"a");
  String changing;
  for (std::size_t i = 0; i < depth / 10; ++i) changing += u"{\\i1";
  EXPECT_TRUE(LastOf(changing + u" a").Italic);
  EXPECT_FALSE(LastOf(changing + String(depth / 10, u'}') + u"a").Italic);
}

TEST(RtfReaderTest, GroupsRestoreTheLook) {
  EXPECT_TRUE(LastOf(u"{\\b a").Bold);
  EXPECT_FALSE(LastOf(u"{\\b a}b").Bold);
  EXPECT_TRUE(LastOf(u"\\b{\\b0 a}b").Bold);
  EXPECT_FALSE(LastOf(u"{\\b a{\\b0 b}c}d").Bold);
  EXPECT_TRUE(LastOf(u"{{\\i a}\\b b{}c").Bold);
  EXPECT_FALSE(LastOf(u"{{\\i a}\\b b{}c").Italic);
}

TEST(RtfReaderTest, TheEndHasTheLookInForce) {
  const FormattedText text = Read(u"a\\i\\qc");
  EXPECT_FALSE(text.back().Runs.At(0).Italic);
  EXPECT_TRUE(text.back().Runs.At(1).Italic);
  EXPECT_EQ(text.back().Paragraph.Alignment, 2);
  EXPECT_TRUE(ReadRtf(u"{\\rtf1\\i a", Base()).back().Runs.At(1).Italic);
  EXPECT_EQ(Read(u"").size(), 1U);
}

TEST(RtfReaderTest, ALineEndHasTheLookInForceAtIt) {
  const FormattedText text = Read(u"a\\i\\par\\i0 b");
  EXPECT_FALSE(text[0].Runs.At(0).Italic);
  EXPECT_TRUE(text[0].Runs.At(1).Italic);
  EXPECT_FALSE(text[1].Runs.At(0).Italic);
}

} // namespace
} // namespace portico::richtext::test
