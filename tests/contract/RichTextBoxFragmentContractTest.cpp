// Fragments, in and out.

#include "contract/RichTextBench.h"

#include <random>

namespace portico::test {
namespace {

class RichTextFragmentContract : public RichTextContract {
protected:
  /// A fragment as the encoders make it.
  static String Encoded(StringView text) {
    return u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 " + String(text) + u"\\par }\r\n";
  }
};

INSTANTIATE_TEST_SUITE_P(AllBoxes, RichTextFragmentContract, testing::ValuesIn(AllRichTextBenches()),
                         RichTextBenchName);

TEST_P(RichTextFragmentContract, AnEncodedTextTakesTheLookOfTheCaret) {
  Load(u"a\r\n");
  box->SelStart(box->TextLength() + 1);
  box->SelFormat(OtherFormat());
  box->SelRTF(Encoded(u"1.5\r\n"));
  EXPECT_EQ(box->Text(), u"a\r\n1.5\r\n");
  EXPECT_EQ(box->SelStart(), 8);
  EXPECT_EQ(FormatOf(3, 5), OtherFormat());
  EXPECT_EQ(FormatOf(0, 3), StandardFormat());
}

TEST_P(RichTextFragmentContract, EncodedTextsFollowOneAnotherInTheirOwnLooks) {
  SelectionFormat response = StandardFormat();
  response.SelItalic = true;
  response.SelIndent = 150;
  SelectionFormat instruction = StandardFormat();
  instruction.SelBold = true;
  for (const SelectionFormat& look : {instruction, response, instruction}) {
    box->SelStart(box->TextLength() + 1);
    box->SelFormat(look);
    box->SelRTF(Encoded(u"text\r\n"));
  }
  EXPECT_EQ(box->Text(), u"text\r\ntext\r\ntext\r\n");
  EXPECT_EQ(FormatOf(0, 6), instruction);
  EXPECT_EQ(FormatOf(6, 6), response);
  EXPECT_EQ(FormatOf(12, 6), instruction);
}

TEST_P(RichTextFragmentContract, AnEncodedTextIsLoadedInTheStandardLook) {
  box->SelFormat(OtherFormat());
  box->TextRTF(Encoded(u"*IDN?\r\n"));
  EXPECT_EQ(box->Text(), u"*IDN?\r\n");
  EXPECT_EQ(box->SelStart(), 0);
  EXPECT_EQ(FormatOf(0, 7), StandardFormat());
}

TEST_P(RichTextFragmentContract, AFragmentEndsInALineEndOnlyIfItSaysSo) {
  box->TextRTF(u"{\\rtf1 abc}");
  EXPECT_EQ(box->Text(), u"abc");
  box->TextRTF(u"{\\rtf1 abc\\par}");
  EXPECT_EQ(box->Text(), u"abc\r\n");
  box->TextRTF(u"{\\rtf1 a\\par b}");
  EXPECT_EQ(box->Text(), u"a\r\nb");
  Load(u"xy");
  Select(1, 0);
  box->SelRTF(u"{\\rtf1 abc}");
  EXPECT_EQ(box->Text(), u"xabcy");
  EXPECT_EQ(box->SelStart(), 4);
}

TEST_P(RichTextFragmentContract, AFragmentReplacesTheSelection) {
  Load(u"ab\r\ncd");
  Select(1, 4);
  box->SelRTF(u"{\\rtf1 x\\par y}");
  EXPECT_EQ(box->Text(), u"ax\r\nyd");
  EXPECT_EQ(box->SelStart(), 5);
}

TEST_P(RichTextFragmentContract, WhatIsNoFragmentIsPlainText) {
  Load(u"");
  box->SelRTF(u"a{b}\\par\r\nc");
  EXPECT_EQ(box->Text(), u"a{b}\\par\r\nc");
  box->TextRTF(u" {\\rtf1 x}");
  EXPECT_EQ(box->Text(), u" {\\rtf1 x}");
  box->TextRTF(u"");
  EXPECT_EQ(box->Text(), u"");
}

TEST_P(RichTextFragmentContract, WhatAFragmentFormatsItselfPrevails) {
  Load(u"");
  box->SelFormat({.SelIndent = 150, .SelColor = 0xFF, .SelItalic = true});
  box->SelRTF(u"{\\rtf1{\\colortbl;\\red0\\green255\\blue0;}a\\cf1\\b\\i0 b\\qr\\par}");
  SelectionFormat first = StandardFormat();
  first.SelAlignment = 1;
  first.SelIndent = 150;
  first.SelColor = 0xFF;
  first.SelItalic = true;
  EXPECT_EQ(FormatOf(0, 1), first);
  SelectionFormat second = first;
  second.SelColor = 0x00FF00;
  second.SelBold = true;
  second.SelItalic = false;
  EXPECT_EQ(FormatOf(1, 1), second);
}

TEST_P(RichTextFragmentContract, ParagraphsKeepTheirLooks) {
  Load(u"ab");
  Select(1, 0);
  box->SelRTF(u"{\\rtf1\\qr x\\par\\qc y\\par\\ql\\ri20 z}");
  EXPECT_EQ(box->Text(), u"ax\r\ny\r\nzb");
  EXPECT_EQ(FormatOf(0, 2).SelAlignment, 1);
  EXPECT_EQ(FormatOf(4, 1).SelAlignment, 2);
  EXPECT_EQ(FormatOf(7, 2).SelAlignment, 0);
  EXPECT_EQ(FormatOf(7, 2).SelRightIndent, 20);
}

TEST_P(RichTextFragmentContract, APieceWithinALineLeavesItsLook) {
  Load(u"ab\r\n");
  Select(1, 0);
  box->SelRTF(u"{\\rtf1\\qr x}");
  EXPECT_EQ(FormatOf(0, 3).SelAlignment, 0);
  box->SelStart(0);
  box->SelRTF(u"{\\rtf1\\qr x}");
  EXPECT_EQ(FormatOf(0, 4).SelAlignment, 0);
  box->SelStart(box->TextLength());
  box->SelRTF(u"{\\rtf1\\qr x}"); // all that there is of the line
  EXPECT_EQ(box->SelFormat().SelAlignment, 1);
}

TEST_P(RichTextFragmentContract, WhatFollowsALineEndOfTheFragmentKeepsItsLook) {
  Load(u"ab");
  Format(0, 0, {.SelIndent = 150});
  Select(1, 0);
  box->SelRTF(u"{\\rtf1\\pard\\qr x\\par}");
  EXPECT_EQ(box->Text(), u"ax\r\nb");
  EXPECT_EQ(FormatOf(0, 4).SelAlignment, 1);
  EXPECT_EQ(FormatOf(0, 4).SelIndent, 0);
  EXPECT_EQ(FormatOf(4, 1).SelAlignment, 0);
  EXPECT_EQ(FormatOf(4, 1).SelIndent, 150);
}

TEST_P(RichTextFragmentContract, ASelectedLineReadsBackElsewhere) {
  Load(u"first\r\nsecond\r\nthird");
  Format(7, 8, {.SelBold = true, .SelColor = 0xFF0000});
  const Ref<IRichTextBox> other = Loaded(FragmentOf(7, 8));
  EXPECT_EQ(other->Text(), u"second\r\n");
  EXPECT_EQ(other->SelStart(), 0);
  EXPECT_EQ(other->SelFormat().SelBold, true);
  EXPECT_EQ(other->SelFormat().SelItalic, false);
  EXPECT_EQ(other->SelFormat().SelColor, 0xFF0000);
}

TEST_P(RichTextFragmentContract, TheLookAfterLoadingIsThatOfTheFirstCharacter) {
  Load(u"ab");
  Format(0, 1, {.SelItalic = true});
  EXPECT_EQ(Loaded(FragmentOf(0, 2))->SelFormat().SelItalic, true);
  EXPECT_EQ(Loaded(FragmentOf(1, 1))->SelFormat().SelItalic, false);
}

TEST_P(RichTextFragmentContract, AFragmentOfNothingIsNotEmptyAndHasNoText) {
  EXPECT_NE(box->SelRTF(), u"");
  EXPECT_EQ(Loaded(box->SelRTF())->Text(), u"");
  EXPECT_EQ(Loaded(box->TextRTF())->Text(), u"");
  Load(u"abc");
  Format(1, 0, {.SelColor = 0xFF});
  const Ref<IRichTextBox> other = Loaded(box->SelRTF());
  EXPECT_EQ(other->Text(), u"");
  EXPECT_EQ(other->SelFormat().SelColor, 0xFF);
}

TEST_P(RichTextFragmentContract, AFragmentSaysEveryValue) {
  Load(u"ab\r\n");
  Format(0, 4, OtherFormat());
  const String other = FragmentOf(0, 4);
  Load(u"cd\r\n");
  Format(0, 4, StandardFormat());
  const String standard = FragmentOf(0, 4);
  // Pasted onto a look that differs in all.
  box->Text(u"");
  box->SelFormat(StandardFormat());
  box->SelRTF(other);
  EXPECT_EQ(FormatOf(0, 4), OtherFormat());
  box->Text(u"");
  box->SelFormat(OtherFormat());
  box->SelRTF(standard);
  EXPECT_EQ(FormatOf(0, 4), StandardFormat());
}

TEST_P(RichTextFragmentContract, TheWholeTextReadsBackWithAllLooks) {
  Load(u"one\r\n\r\ntwo");
  Format(0, 2, OtherFormat());
  Format(2, 3, {.SelFontName = u"A;b\\{}\u20AC", .SelFontSize = 7.5});
  Format(5, 2, {.SelBullet = true, .SelUnderline = true});
  Format(7, 1, {.SelIndent = -20, .SelCharOffset = 30});
  const Ref<IRichTextBox> other = Loaded(box->TextRTF());
  EXPECT_EQ(other->Text(), box->Text());
  for (std::int32_t position = 0; position <= box->TextLength(); ++position) {
    Select(position, 1);
    other->SelStart(position);
    other->SelLength(1);
    EXPECT_EQ(other->SelFormat(), box->SelFormat()) << position;
  }
  EXPECT_EQ(other->TextRTF(), box->TextRTF());
}

TEST_P(RichTextFragmentContract, EveryUnitButCrAndLfSurvives) {
  String text;
  for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
    if (unit != u'\r' && unit != u'\n') text += static_cast<char16_t>(unit);
  }
  Load(text);
  EXPECT_EQ(Loaded(box->TextRTF())->Text(), text);
  EXPECT_EQ(Loaded(FragmentOf(0, box->TextLength()))->Text(), text);
  // Each of them alone as well.
  String alone;
  for (const char16_t unit : text) {
    box->Text(StringView(&unit, 1));
    box->SelLength(1);
    box->TextRTF(box->SelRTF());
    alone += box->Text();
  }
  EXPECT_EQ(alone, text);
}

TEST_P(RichTextFragmentContract, RandomTextsWithRandomLooksSurvive) {
  std::mt19937 random(20260117);
  const auto below = [&](std::int32_t limit) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(limit));
  };
  for (int round = 0; round < 200; ++round) {
    String text;
    for (std::int32_t i = below(60); i > 0; --i) {
      const int kind = below(4);
      text += kind == 0   ? u"\\{}' \t\r\n;*-"[below(12)]
              : kind == 1 ? static_cast<char16_t>(u'0' + below(10))
              : kind == 2 ? static_cast<char16_t>(u'a' + below(26))
                          : static_cast<char16_t>(random());
    }
    Load(text);
    for (int i = 0; i < 6; ++i) {
      const std::int32_t start = below(box->TextLength() + 1);
      Format(start, below(20),
             {.SelAlignment = below(3),
              .SelBullet = below(2) == 1,
              .SelHangingIndent = below(2000) - 1000,
              .SelIndent = below(2000) - 1000,
              .SelRightIndent = below(2000) - 1000,
              .SelBold = below(2) == 1,
              .SelCharOffset = below(2000) - 1000,
              .SelColor = below(0x1000000),
              .SelFontName = below(2) == 1 ? u"Sans" : u"A Font;",
              .SelFontSize = 0.5 + below(100) / 2.0,
              .SelItalic = below(2) == 1,
              .SelStrikeThru = below(2) == 1,
              .SelUnderline = below(2) == 1});
    }
    const Ref<IRichTextBox> other = Loaded(box->TextRTF());
    ASSERT_EQ(other->Text(), box->Text()) << round;
    ASSERT_EQ(other->TextRTF(), box->TextRTF()) << round;
    const std::int32_t start = below(box->TextLength() + 1);
    Select(start, below(40));
    const Ref<IRichTextBox> part = Loaded(box->SelRTF());
    ASSERT_EQ(part->Text(), box->SelText()) << round;
    part->SelLength(part->TextLength());
    ASSERT_EQ(part->SelFormat(), box->SelFormat()) << round;
  }
}

/// What the text does as RTF, it does here.
TEST_P(RichTextFragmentContract, AnInsertedFragmentIsWhatItsRtfWouldBe) {
  const Ref<IRichTextBox> other = GetParam().make();
  for (const StringView text : {u"", u"1.5\r\n", u"a\r\nb", u"{\"volt\":1.5}\r\n", u"C:\\data\\new.csv", u"}behind",
                                u"{", u"{{}", u"\\", u"\\\\", u"\\'4", u"\\'80", u"\\b x\\i", u"\\plain\\qr",
                                u"\\uc2\\u8364 ", u"{\\*\\none", u"\\bin3", u"\u20AC\u4E2D"}) {
    for (const Ref<IRichTextBox>& each : {box, other}) {
      each->Text(u"first\r\nsecond");
      each->SelStart(3);
      each->SelLength(6);
      each->SelFormat(OtherFormat());
    }
    box->SelFragment({String(text), u"}\r\n"});
    other->SelRTF(Encoded(text));
    EXPECT_EQ(box->TextRTF(), other->TextRTF()) << ToUtf8(text);
    EXPECT_EQ(box->SelStart(), other->SelStart()) << ToUtf8(text);
    EXPECT_EQ(box->SelFormat(), other->SelFormat()) << ToUtf8(text);
  }
}

TEST_P(RichTextFragmentContract, APastedFragmentReadsBackTheSame) {
  Load(u"ab\r\ncd\r\nef");
  Format(1, 3, OtherFormat());
  Format(6, 3, {.SelAlignment = 1, .SelUnderline = true});
  const String fragment = FragmentOf(0, 8);
  const Ref<IRichTextBox> other = Loaded(u"{\\rtf1 x\\par}");
  other->SelStart(3);
  other->SelRTF(fragment);
  other->SelStart(3);
  other->SelLength(8);
  EXPECT_EQ(other->SelRTF(), fragment);
}

} // namespace
} // namespace portico::test
