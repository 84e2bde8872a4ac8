#include "richtext/RtfText.h"

#include <utility>

namespace portico::richtext::test {
namespace {

TEST(RtfReaderFormatTest, WhatIsNotFormattedHasTheLookOfTheBase) {
  Formatting base = Base();
  base.Character.Italic = true;
  base.Paragraph.Indent = 150;
  const FormattedText text = ReadRtf(u"{\\rtf1\\b a\\par}", base);
  CharacterFormat expected = base.Character;
  expected.Bold = true;
  EXPECT_EQ(text[0].Runs, FormatRuns(2, expected));
  EXPECT_EQ(text[0].Paragraph, base.Paragraph);
  EXPECT_EQ(text[1].Paragraph, base.Paragraph);
}

TEST(RtfReaderFormatTest, Switches) {
  EXPECT_TRUE(LastOf(u"\\b a").Bold);
  EXPECT_TRUE(LastOf(u"\\i a").Italic);
  EXPECT_TRUE(LastOf(u"\\ul a").Underline);
  EXPECT_TRUE(LastOf(u"\\strike a").StrikeThru);
  EXPECT_EQ(LastOf(u"\\b\\i\\ul\\strike\\b0\\i0\\ul0\\strike0 a"), Base().Character);
  EXPECT_FALSE(LastOf(u"\\ul\\ulnone a").Underline);
  EXPECT_TRUE(LastOf(u"\\b7 a").Bold);
  EXPECT_TRUE(LastOf(u"\\b-1 a").Bold);
}

TEST(RtfReaderFormatTest, Offsets) {
  for (const auto& [body, expected] : {std::pair{u"\\up6 a", 60},
                                       {u"\\dn3 a", -30},
                                       {u"\\up a", 60},
                                       {u"\\dn a", -60},
                                       {u"\\up0 a", 0},
                                       {u"\\up-2 a", -20},
                                       {u"\\up99999999999 a", 31680},
                                       {u"\\dn99999999999 a", -31680},
                                       {u"\\dn-99999999999 a", 31680}}) {
    EXPECT_EQ(LastOf(body).CharOffset, expected) << ToUtf8(body);
  }
}

TEST(RtfReaderFormatTest, FontSizes) {
  for (const auto& [body, expected] : {std::pair{u"\\fs25 a", 12.5},
                                       {u"\\fs a", 12.0},
                                       {u"\\fs1 a", 0.5},
                                       {u"\\fs0 a", 9.0},
                                       {u"\\fs-20 a", 9.0},
                                       {u"\\fs99999999999 a", 1638.0}}) {
    EXPECT_EQ(LastOf(body).FontSize, expected) << ToUtf8(body);
  }
}

TEST(RtfReaderFormatTest, Fonts) {
  const String table = u"{\\fonttbl{\\f0\\fnil Sans;}{\\f2\\fswiss\\fcharset0 Two Words;}\\f7\\froman Seven;}";
  EXPECT_EQ(LastOf(table + u"a").FontName, u"Base");
  EXPECT_EQ(LastOf(table + u"\\f0 a").FontName, u"Sans");
  EXPECT_EQ(LastOf(table + u"\\f2 a").FontName, u"Two Words");
  EXPECT_EQ(LastOf(table + u"\\f7 a").FontName, u"Seven");
  EXPECT_EQ(LastOf(table + u"\\f a").FontName, u"Sans");
  EXPECT_EQ(LastOf(table + u"\\f1 a").FontName, u"Base");
  EXPECT_EQ(LastOf(table + u"\\f2\\f1 a").FontName, u"Two Words");
  EXPECT_EQ(LastOf(u"\\f0 a").FontName, u"Base");
  EXPECT_EQ(TextOf(table + u"a"), u"a");
}

TEST(RtfReaderFormatTest, FontNames) {
  EXPECT_EQ(LastOf(u"{\\fonttbl{\\f0 A\\'3b\\u8364?\\{B;}}\\f0 a").FontName, u"A;\u20AC{B");
  EXPECT_EQ(LastOf(u"{\\fonttbl{\\f0{\\*\\panose 0102}Sans{\\*\\falt Other};}}\\f0 a").FontName, u"Sans");
  EXPECT_EQ(LastOf(u"{\\fonttbl{\\f0 A;}{\\f0 B;}}\\f0 a").FontName, u"B");
  EXPECT_EQ(LastOf(u"{\\fonttbl{\\f0 ;}}\\f0 a").FontName, u"Base");
  EXPECT_EQ(LastOf(u"{\\fonttbl{\\f0 Open}{\\f1 Sans;}}\\f0 a").FontName, u"Base");
  const String name(1000, u'x');
  EXPECT_EQ(LastOf(u"{\\fonttbl{\\f0 " + name + u";}}\\f0 a").FontName, name.substr(0, 100));
}

TEST(RtfReaderFormatTest, Colors) {
  const String table = u"{\\colortbl;\\red255\\green0\\blue1;\\red1\\green2\\blue3;\\green127;}";
  EXPECT_EQ(LastOf(table + u"a").Color, 0x010203);
  EXPECT_EQ(LastOf(table + u"\\cf0 a").Color, 0);
  EXPECT_EQ(LastOf(table + u"\\cf1 a").Color, 0x0100FF);
  EXPECT_EQ(LastOf(table + u"\\cf2 a").Color, 0x030201);
  EXPECT_EQ(LastOf(table + u"\\cf3 a").Color, 0x007F00);
  EXPECT_EQ(LastOf(table + u"\\cf a").Color, 0);
  for (const StringView word : {u"\\cf4", u"\\cf-1", u"\\cf99999999999", u"\\cf-99999999999"}) {
    EXPECT_EQ(LastOf(table + String(word) + u" a").Color, 0);
  }
  EXPECT_EQ(LastOf(u"{\\colortbl\\red300\\green-7\\blue999999999999;}\\cf0 a").Color, 0xFF00FF);
  EXPECT_EQ(TextOf(table + u"a"), u"a");
}

TEST(RtfReaderFormatTest, PlainTakesAllBackButTheBasesFont) {
  const CharacterFormat plain = LastOf(u"{\\fonttbl{\\f0 Sans;}}\\b\\i\\ul\\strike\\up6\\f0\\fs50\\cf0\\plain a");
  EXPECT_EQ(plain, (CharacterFormat{.FontName = u"Base", .FontSize = 9}));
  Formatting base = Base();
  base.Character.Italic = true;
  EXPECT_FALSE(ReadRtf(u"{\\rtf1\\plain a}", base).back().Runs.At(0).Italic);
}

TEST(RtfReaderFormatTest, Alignments) {
  EXPECT_EQ(ParagraphOf(u"\\ql a").Alignment, 0);
  EXPECT_EQ(ParagraphOf(u"\\qr a").Alignment, 1);
  EXPECT_EQ(ParagraphOf(u"\\qc a").Alignment, 2);
  EXPECT_EQ(ParagraphOf(u"\\qc\\ql a").Alignment, 0);
}

TEST(RtfReaderFormatTest, Indents) {
  EXPECT_EQ(ParagraphOf(u"\\li150 a"), (ParagraphFormat{.Indent = 150}));
  EXPECT_EQ(ParagraphOf(u"\\ri75 a"), (ParagraphFormat{.RightIndent = 75}));
  EXPECT_EQ(ParagraphOf(u"\\li450\\fi-300 a"), (ParagraphFormat{.HangingIndent = 300, .Indent = 150}));
  EXPECT_EQ(ParagraphOf(u"\\fi-300\\li450 a"), (ParagraphFormat{.HangingIndent = 300, .Indent = 150}));
  EXPECT_EQ(ParagraphOf(u"\\fi200 a"), (ParagraphFormat{.HangingIndent = -200, .Indent = 200}));
  EXPECT_EQ(ParagraphOf(u"\\li150\\li a"), ParagraphFormat{});
}

TEST(RtfReaderFormatTest, IndentsEndAtTheirRange) {
  EXPECT_EQ(ParagraphOf(u"\\li99999999999\\ri99999999999 a"), (ParagraphFormat{.Indent = 31680, .RightIndent = 31680}));
  EXPECT_EQ(ParagraphOf(u"\\li-99999999999\\ri-99999999999 a"),
            (ParagraphFormat{.Indent = -31680, .RightIndent = -31680}));
  EXPECT_EQ(ParagraphOf(u"\\fi-2147483648 a").HangingIndent, 31680);
  EXPECT_EQ(ParagraphOf(u"\\fi2147483648\\li-2147483648 a"),
            (ParagraphFormat{.HangingIndent = -31680, .Indent = -31680}));
}

TEST(RtfReaderFormatTest, PardTakesAllOfTheParagraphBack) {
  EXPECT_EQ(ParagraphOf(u"\\qc\\li1\\ri1\\fi1{\\*\\pn\\pnlvlblt}\\pard a"), ParagraphFormat{});
  Formatting base = Base();
  base.Paragraph.Indent = 150;
  EXPECT_EQ(ReadRtf(u"{\\rtf1\\pard a}", base).back().Paragraph, ParagraphFormat{});
}

TEST(RtfReaderFormatTest, Bullets) {
  EXPECT_TRUE(ParagraphOf(u"{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}a").Bullet);
  EXPECT_TRUE(ParagraphOf(u"{\\*\\pn{\\x}\\pnlvlblt{\\y}}a").Bullet);
  EXPECT_FALSE(ParagraphOf(u"{\\*\\pn\\pnlvlbody}a").Bullet);
  EXPECT_FALSE(ParagraphOf(u"\\pnlvlblt a").Bullet);
  EXPECT_FALSE(ParagraphOf(u"{{\\*\\pn\\pnlvlblt}}a").Bullet); // of the group around it
  EXPECT_EQ(TextOf(u"{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt x{\\pntxtb\\'B7}}a"), u"a");
}

TEST(RtfReaderFormatTest, AParagraphLooksAsAtItsLineEnd) {
  const FormattedText text = Read(u"a\\qc b\\par c\\par{\\qr d}\\par");
  EXPECT_EQ(text[0].Paragraph.Alignment, 2);
  EXPECT_EQ(text[1].Paragraph.Alignment, 2);
  EXPECT_EQ(text[2].Paragraph.Alignment, 2);
  EXPECT_EQ(text[3].Paragraph.Alignment, 2);
}

TEST(RtfReaderFormatTest, TablesHoldNoText) {
  EXPECT_EQ(TextOf(u"{\\fonttbl{\\f0 A;}\\par\\tab x}{\\colortbl\\red1;x\\par\\tab\\u65?}b"), u"b");
}

} // namespace
} // namespace portico::richtext::test
