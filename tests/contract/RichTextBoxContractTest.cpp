// Positions, selection, text and its changes.

#include "contract/RichTextBench.h"

#include "support/ErrorReports.h"

#include <array>
#include <limits>

namespace portico::test {
namespace {

INSTANTIATE_TEST_SUITE_P(AllBoxes, RichTextContract, testing::ValuesIn(AllRichTextBenches()), RichTextBenchName);

constexpr std::int32_t Farthest = std::numeric_limits<std::int32_t>::max();

TEST_P(RichTextContract, ANewBoxIsEmpty) {
  EXPECT_EQ(box->Text(), u"");
  EXPECT_EQ(box->TextLength(), 0);
  EXPECT_EQ(box->SelStart(), 0);
  EXPECT_EQ(box->SelLength(), 0);
  EXPECT_EQ(box->SelText(), u"");
  EXPECT_EQ(box->SelFormat(), StandardFormat());
}

TEST_P(RichTextContract, ALineEndCountsAsTwo) {
  Load(u"ab\r\nc\r\n");
  EXPECT_EQ(box->TextLength(), 7);
  EXPECT_EQ(TextOf(4, 1), u"c");
  EXPECT_EQ(TextOf(2, 2), u"\r\n");
  EXPECT_EQ(TextOf(1, 4), u"b\r\nc");
}

TEST_P(RichTextContract, AUnitOutsideTheBasicPlaneCountsAsTwo) {
  Load(u"\U0001F600x");
  EXPECT_EQ(box->TextLength(), 3);
  EXPECT_EQ(TextOf(2, 1), u"x");
}

TEST_P(RichTextContract, SettingTheTextPutsTheCaretInFront) {
  Load(u"abc");
  Select(1, 2);
  box->Text(u"xyz");
  EXPECT_EQ(box->SelStart(), 0);
  EXPECT_EQ(box->SelLength(), 0);
}

TEST_P(RichTextContract, EachKindOfLineEndBecomesCrLf) {
  Load(u"a\r\nb\rc\nd\n\re");
  EXPECT_EQ(box->Text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne");
  box->Text(u"");
  box->SelText(u"a\r\nb\rc\nd\n\re");
  EXPECT_EQ(box->Text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne");
  EXPECT_EQ(box->SelStart(), box->TextLength());
}

TEST_P(RichTextContract, EveryOtherUnitStaysAsItIs) {
  String text;
  for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
    if (unit != u'\r' && unit != u'\n') text += static_cast<char16_t>(unit);
  }
  Load(text);
  EXPECT_EQ(box->Text(), text);
  EXPECT_EQ(box->TextLength(), 65534);
}

TEST_P(RichTextContract, SelStartIsClampedToTheEnd) {
  Load(u"abc");
  box->SelStart(3);
  EXPECT_EQ(box->SelStart(), 3);
  box->SelStart(box->TextLength() + 1);
  EXPECT_EQ(box->SelStart(), 3);
  box->SelStart(Farthest);
  EXPECT_EQ(box->SelStart(), 3);
}

TEST_P(RichTextContract, SettingSelStartEmptiesTheSelection) {
  Load(u"abc");
  Select(0, 2);
  box->SelStart(0);
  EXPECT_EQ(box->SelLength(), 0);
  EXPECT_EQ(box->SelText(), u"");
}

TEST_P(RichTextContract, NegativePositionsRaise380AndChangeNothing) {
  Load(u"abc");
  Select(1, 2);
  for (const std::int32_t value : {-1, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(Raised([&] { box->SelStart(value); }).Number, 380);
    EXPECT_EQ(Raised([&] { box->SelLength(value); }).Number, 380);
  }
  EXPECT_EQ(box->SelStart(), 1);
  EXPECT_EQ(box->SelLength(), 2);
}

TEST_P(RichTextContract, ALengthBehindTheEndSelectsWhatThereIs) {
  Load(u"abc");
  EXPECT_EQ(TextOf(1, 100), u"bc");
  EXPECT_EQ(TextOf(1, Farthest), u"bc");
  EXPECT_EQ(TextOf(3, 1), u"");
}

TEST_P(RichTextContract, ALengthIsClampedToOneMoreThanThereIs) {
  Load(u"abc");
  Select(1, 2);
  EXPECT_EQ(box->SelLength(), 2);
  for (const std::int32_t length : {3, 4, 100, Farthest}) {
    Select(1, length);
    EXPECT_EQ(box->SelLength(), 3);
  }
  Select(3, 5);
  EXPECT_EQ(box->SelLength(), 1);
}

TEST_P(RichTextContract, TheSelectedTextHasALengthThatNeedsNoCopy) {
  Load(u"ab\r\n\r\n\U0001F600");
  EXPECT_EQ(box->SelTextLength(), 0);
  for (const auto& [start, length, selected] : {std::array{0, 1, 1}, std::array{0, 4, 4}, std::array{1, 3, 3},
                                                std::array{4, 3, 3}, std::array{0, 8, 8}, std::array{6, 2, 2}}) {
    Select(start, length);
    EXPECT_EQ(box->SelTextLength(), selected) << start << "+" << length;
    EXPECT_EQ(box->SelText().size(), static_cast<std::size_t>(selected)) << start << "+" << length;
  }
}

TEST_P(RichTextContract, TheEndOfTheTextIsNoPartOfTheSelectedLength) {
  Load(u"abc");
  Select(1, Farthest);
  EXPECT_EQ(box->SelLength(), 3);
  EXPECT_EQ(box->SelTextLength(), 2);
  Select(3, 1);
  EXPECT_EQ(box->SelTextLength(), 0);
  Load(u"ab\r\ncd");
  Select(2, 1); // half a line end
  EXPECT_EQ(box->SelLength(), 1);
  EXPECT_EQ(box->SelTextLength(), 0);
}

TEST_P(RichTextContract, OneUpAndOneDownAgainLosesNothing) {
  Load(u"ab\r\n\r\ncd");
  const std::int32_t end = box->TextLength();
  for (std::int32_t start = 0; start <= end; ++start) {
    for (std::int32_t length = 0; length <= end + 2; ++length) {
      const String before = TextOf(start, length);
      const bool isMeasured = length <= end - start;
      box->SelLength(box->SelLength() + 1);
      box->SelLength(box->SelLength() - 1);
      EXPECT_EQ(box->SelText(), before) << start << "+" << length;
      EXPECT_EQ(box->SelTextLength(), static_cast<std::int32_t>(before.size())) << start << "+" << length;
      if (isMeasured && box->SelStart() == start) {
        EXPECT_EQ(box->SelLength(), length);
      }
    }
  }
}

TEST_P(RichTextContract, APositionInsideALineEndIsTheOneInFrontOfIt) {
  Load(u"ab\r\ncd");
  box->SelStart(3);
  EXPECT_EQ(box->SelStart(), 2);
  EXPECT_EQ(TextOf(3, 2), u"\r\n");
  EXPECT_EQ(TextOf(0, 3), u"ab");
  EXPECT_EQ(TextOf(2, 1), u"");
  EXPECT_EQ(box->SelLength(), 1);
  box->SelText(u"x");
  EXPECT_EQ(box->Text(), u"abx\r\ncd");
}

TEST_P(RichTextContract, SelTextReplacesTheSelection) {
  Load(u"abcdef");
  Select(1, 3);
  box->SelText(u"XY");
  EXPECT_EQ(box->Text(), u"aXYef");
  EXPECT_EQ(box->SelStart(), 3);
  EXPECT_EQ(box->SelLength(), 0);
}

TEST_P(RichTextContract, SelTextAtTheCaretInserts) {
  Load(u"ad");
  box->SelStart(1);
  box->SelText(u"b\r\nc");
  EXPECT_EQ(box->Text(), u"ab\r\ncd");
  EXPECT_EQ(box->SelStart(), 5);
}

TEST_P(RichTextContract, EmptyTextDeletesTheSelection) {
  Load(u"ab\r\ncd\r\nef");
  Select(1, 8);
  box->SelText(u"");
  EXPECT_EQ(box->Text(), u"af");
  Select(0, 1);
  box->SelRTF(u"");
  EXPECT_EQ(box->Text(), u"f");
  EXPECT_EQ(box->SelStart(), 0);
}

TEST_P(RichTextContract, AFirstLineIsDeletedWithItsLineEnd) {
  Load(u"ab\r\n\r\ncd");
  Select(0, 4);
  box->SelRTF(u"");
  EXPECT_EQ(box->Text(), u"\r\ncd");
  Select(0, 2);
  box->SelRTF(u"");
  EXPECT_EQ(box->Text(), u"cd");
}

TEST_P(RichTextContract, ASelectionOfTheWholeTextIsReplaced) {
  Load(u"ab\r\n");
  Select(0, 100);
  box->SelText(u"x\r\n\r\n");
  EXPECT_EQ(box->Text(), u"x\r\n\r\n");
  EXPECT_EQ(box->TextLength(), 5);
}

TEST_P(RichTextContract, LinesAreCountedFromZero) {
  Load(u"ab\r\n\r\ncd");
  const std::vector<std::int32_t> expected = {0, 0, 0, 0, 1, 1, 2, 2, 2, 2};
  for (std::size_t position = 0; position < expected.size(); ++position) {
    EXPECT_EQ(box->GetLineFromChar(static_cast<std::int32_t>(position)), expected[position]) << position;
  }
  EXPECT_EQ(box->GetLineFromChar(Farthest), 2);
  EXPECT_EQ(box->GetLineFromChar(-1), 0);
  EXPECT_EQ(box->SelStart(), 0);
}

TEST_P(RichTextContract, TheLineBehindALastLineEndIsALine) {
  Load(u"ab\r\n");
  EXPECT_EQ(box->GetLineFromChar(4), 1);
  Load(u"");
  EXPECT_EQ(box->GetLineFromChar(0), 0);
}

TEST_P(RichTextContract, EachChangeOfTheTextFiresOnce) {
  box->Text(u"abc");
  EXPECT_EQ(changes, 1);
  box->SelText(u"x");
  EXPECT_EQ(changes, 2);
  Select(0, 1);
  box->SelText(u"");
  EXPECT_EQ(changes, 3);
  box->SelRTF(u"{\\rtf1 a\\par b}");
  EXPECT_EQ(changes, 4);
  box->TextRTF(u"{\\rtf1 a}");
  EXPECT_EQ(changes, 5);
  Select(0, 1);
  box->SelRTF(u"");
  EXPECT_EQ(changes, 6);
  EXPECT_EQ(box->Text(), u"");
}

TEST_P(RichTextContract, WhatChangesNoCharacterFiresNothing) {
  Load(u"abc\r\n");
  box->SelText(u"");
  box->SelRTF(u"");
  box->SelRTF(u"{\\rtf1 }");
  box->SelFormat(OtherFormat());
  Format(0, 3, OtherFormat());
  box->Find(u"b", 0);
  box->Span(u"c");
  box->SetFocus();
  box->SelStart(1);
  box->SelLength(2);
  EXPECT_EQ(changes, 0);
  Load(u"");
  box->Text(u"");
  box->TextRTF(u"{\\rtf1 }");
  EXPECT_EQ(changes, 0);
}

TEST_P(RichTextContract, ChangeFiresWhenAllIsInPlace) {
  String text;
  std::int32_t start = -1;
  box->Change().Connect([&] {
    text = box->Text();
    start = box->SelStart();
  });
  box->SelText(u"ab\r\n");
  EXPECT_EQ(text, u"ab\r\n");
  EXPECT_EQ(start, 4);
}

TEST_P(RichTextContract, AHandlerMayUseTheBox) {
  box->Change().Connect([&] {
    const std::int32_t start = box->SelStart();
    box->Find(u"\r\n", start - 2, start);
    box->SelStart(start);
    box->SelFormat({.SelBold = false, .SelItalic = false});
    if (box->TextLength() < 6) box->SelText(u"+");
  });
  box->SelText(u"a\r\n");
  EXPECT_EQ(box->Text(), u"a\r\n+++");
  EXPECT_EQ(changes, 4);
}

} // namespace
} // namespace portico::test
