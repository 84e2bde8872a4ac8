#include "richtext/RtfWriter.h"

#include "richtext/RtfText.h"

namespace portico::richtext::test {
namespace {

const Formatting Standard = StandardFormatting(u"Sans", 10);

Formatting Other() {
  return {{.FontName = u"Mono;{}\\\u20AC",
           .FontSize = 12.5,
           .Color = 0x123456,
           .CharOffset = -60,
           .Bold = true,
           .Italic = true,
           .StrikeThru = true,
           .Underline = true},
          {.Alignment = 2, .HangingIndent = 300, .Indent = 150, .RightIndent = 75, .Bullet = true}};
}

TEST(RtfWriterTest, NothingIsAFragmentWithoutText) {
  EXPECT_EQ(
      WriteRtf(FormatPlain(u"", Standard)),
      u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil Sans;}}{\\colortbl;\\red0\\green0\\blue0;}\r\n"
      u"\\pard\\ql\\fi0\\li0\\ri0 \\f0\\fs20\\cf1\\b0\\i0\\ul0\\strike0\\up0 }\r\n");
}

TEST(RtfWriterTest, LinesInOneLookSayItOnce) {
  EXPECT_EQ(
      WriteRtf(FormatPlain(u"*IDN?\r\n\r\nMEAS?", Standard)),
      u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil Sans;}}{\\colortbl;\\red0\\green0\\blue0;}\r\n"
      u"\\pard\\ql\\fi0\\li0\\ri0 \\f0\\fs20\\cf1\\b0\\i0\\ul0\\strike0\\up0 *IDN?\\par\r\n"
      u"\\par\r\n"
      u"MEAS?}\r\n");
}

TEST(RtfWriterTest, EveryValueIsWritten) {
  EXPECT_EQ(WriteRtf(FormatPlain(u"a\r\n", Other())),
            u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil Mono\\'3B\\{\\}\\\\\\u8364?;}}"
            u"{\\colortbl;\\red86\\green52\\blue18;}\r\n"
            u"\\pard{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}\\qc\\fi-300\\li450\\ri75 "
            u"\\f0\\fs25\\cf1\\b1\\i1\\ul1\\strike1\\dn6 a\\par\r\n"
            u"}\r\n");
}

TEST(RtfWriterTest, AChangeOfTheLookIsWrittenWhereItIs) {
  FormattedText text = FormatPlain(u"ab\r\nc", Standard);
  CharacterFormat red = Standard.Character;
  red.Color = 0x0000FF;
  red.CharOffset = 30;
  text[0].Runs.Transform(1, 1, [&](CharacterFormat& format) { format = red; });
  text[1].Paragraph.Alignment = 1;
  EXPECT_EQ(WriteRtf(text), u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fnil Sans;}}"
                            u"{\\colortbl;\\red0\\green0\\blue0;\\red255\\green0\\blue0;}\r\n"
                            u"\\pard\\ql\\fi0\\li0\\ri0 \\f0\\fs20\\cf1\\b0\\i0\\ul0\\strike0\\up0 a"
                            u"\\f0\\fs20\\cf2\\b0\\i0\\ul0\\strike0\\up3 b"
                            u"\\f0\\fs20\\cf1\\b0\\i0\\ul0\\strike0\\up0 \\par\r\n"
                            u"\\pard\\qr\\fi0\\li0\\ri0 c}\r\n");
}

TEST(RtfWriterTest, UnitsOutsideAsciiAreEscaped) {
  const String text = String(u"\\{}\t~\u00E4\u20AC\U0001F600") + char16_t{0xDC00} + u'\0' + u"\u007F\u000B";
  const String fragment = WriteRtf(FormatPlain(text, Standard));
  EXPECT_TRUE(
      fragment.ends_with(u"\\up0 \\\\\\{\\}\\tab ~\\u228?\\u8364?\\u-10179?\\u-8704?\\u-9216?\\u0?\\u127?\\u11?}\r\n"));
}

TEST(RtfWriterTest, WhatIsWrittenReadsBackWhateverItIsReadOnto) {
  FormattedText text = FormatPlain(u"one\r\n\r\ntwo\r\n", Standard);
  text[0].Runs.Transform(1, 2, [](CharacterFormat& format) { format = Other().Character; });
  text[1].Runs.Transform(0, 1, [](CharacterFormat& format) { format.Italic = true; });
  text[1].Paragraph = Other().Paragraph;
  text[3].Runs.Transform(0, 1, [](CharacterFormat& format) { format.Bold = true; });
  text[3].Paragraph.Alignment = 1;
  for (const Formatting& base : {Standard, Other()}) EXPECT_EQ(ReadRtf(WriteRtf(text), base), text);
}

TEST(RtfWriterTest, IndentsAtTheEndsOfTheirRangeReadBack) {
  for (const std::int32_t indent : {-31680, 0, 31680}) {
    for (const std::int32_t hanging : {-31680, 0, 31680}) {
      FormattedText text = FormatPlain(u"a", Standard);
      text[0].Paragraph = {.HangingIndent = hanging, .Indent = indent, .RightIndent = -indent};
      EXPECT_EQ(ReadRtf(WriteRtf(text), Other()), text);
    }
  }
}

} // namespace
} // namespace portico::richtext::test
