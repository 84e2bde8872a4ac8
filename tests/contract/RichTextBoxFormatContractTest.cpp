// The thirteen values of a selection.

#include "contract/RichTextBench.h"

#include "support/ErrorReports.h"

#include <limits>

namespace portico::test {
namespace {

class RichTextFormatContract : public RichTextContract {};

INSTANTIATE_TEST_SUITE_P(AllBoxes, RichTextFormatContract, testing::ValuesIn(AllRichTextBenches()), RichTextBenchName);

TEST_P(RichTextFormatContract, EveryValueOfASelectionIsKept) {
  Load(u"abc");
  Format(0, 3, OtherFormat());
  EXPECT_EQ(box->SelFormat(), OtherFormat());
  EXPECT_EQ(FormatOf(0, 1), OtherFormat());
  EXPECT_EQ(FormatOf(2, 1), OtherFormat());
}

TEST_P(RichTextFormatContract, EveryValueOfTheCaretIsKept) {
  box->SelFormat(OtherFormat());
  EXPECT_EQ(box->SelFormat(), OtherFormat());
}

TEST_P(RichTextFormatContract, ValuesThatAreNotSetStay) {
  Load(u"abc");
  Format(0, 3, {.SelItalic = true});
  Format(0, 3, {.SelIndent = 150, .SelColor = 0xFF});
  SelectionFormat expected = StandardFormat();
  expected.SelItalic = true;
  expected.SelColor = 0xFF;
  expected.SelIndent = 150;
  EXPECT_EQ(box->SelFormat(), expected);
}

TEST_P(RichTextFormatContract, EachValueThatDiffersIsMixed) {
  Load(u"ab\r\ncd");
  Format(4, 2, OtherFormat());
  EXPECT_EQ(FormatOf(0, 6), SelectionFormat{});
  EXPECT_EQ(FormatOf(0, 2), StandardFormat());
  EXPECT_EQ(FormatOf(4, 2), OtherFormat());
}

TEST_P(RichTextFormatContract, OnlyWhatDiffersIsMixed) {
  Load(u"abc");
  Format(1, 1, {.SelBold = true});
  SelectionFormat expected = StandardFormat();
  expected.SelBold.reset();
  EXPECT_EQ(FormatOf(0, 3), expected);
  EXPECT_EQ(FormatOf(0, 2), expected);
  EXPECT_EQ(FormatOf(1, 1).SelBold, true);
}

TEST_P(RichTextFormatContract, LineEndsHaveALookOfTheirOwn) {
  Load(u"ab\r\ncd");
  Format(0, 2, {.SelItalic = true});
  EXPECT_EQ(FormatOf(0, 2).SelItalic, true);
  EXPECT_EQ(FormatOf(0, 4).SelItalic, std::nullopt);
  EXPECT_EQ(FormatOf(2, 2).SelItalic, false);
  Format(0, 4, {.SelItalic = true});
  EXPECT_EQ(FormatOf(0, 4).SelItalic, true);
  EXPECT_EQ(FormatOf(2, 2).SelItalic, true);
  EXPECT_EQ(FormatOf(4, 2).SelItalic, false);
}

TEST_P(RichTextFormatContract, AnEmptyLinesLineEndIsRead) {
  Load(u"\r\nab");
  Format(0, 2, {.SelItalic = true});
  EXPECT_EQ(FormatOf(0, 2).SelItalic, true);
  EXPECT_EQ(FormatOf(0, 0).SelItalic, true);
  EXPECT_EQ(FormatOf(2, 1).SelItalic, false);
}

TEST_P(RichTextFormatContract, ASelectionReachesNoFurtherThanTheText) {
  Load(u"ab");
  Format(1, 100, {.SelItalic = true});
  EXPECT_EQ(FormatOf(1, 100).SelItalic, true);
  EXPECT_EQ(FormatOf(0, 1).SelItalic, false);
}

TEST_P(RichTextFormatContract, ParagraphValuesActOnEveryLineThatIsTouched) {
  Load(u"ab\r\ncd\r\nef");
  Format(1, 4, {.SelIndent = 150});
  EXPECT_EQ(FormatOf(0, 0).SelIndent, 150);
  EXPECT_EQ(FormatOf(4, 0).SelIndent, 150);
  EXPECT_EQ(FormatOf(8, 0).SelIndent, 0);
  EXPECT_EQ(FormatOf(0, 10).SelIndent, std::nullopt);
}

TEST_P(RichTextFormatContract, ALineThatASelectionEndsInFrontOfIsNotTouched) {
  Load(u"ab\r\ncd");
  Format(0, 4, {.SelIndent = 150});
  EXPECT_EQ(FormatOf(0, 4).SelIndent, 150);
  EXPECT_EQ(FormatOf(4, 0).SelIndent, 0);
}

TEST_P(RichTextFormatContract, ParagraphValuesOfTheCaretActOnItsLine) {
  Load(u"ab\r\ncd");
  Format(5, 0, {.SelIndent = 150, .SelColor = 0xFF});
  EXPECT_EQ(FormatOf(4, 2).SelIndent, 150);
  EXPECT_EQ(FormatOf(4, 2).SelColor, 0);
  EXPECT_EQ(FormatOf(0, 2).SelIndent, 0);
}

TEST_P(RichTextFormatContract, TheCaretLooksLikeTheCharacterInFrontOfIt) {
  Load(u"ab\r\ncd");
  Format(0, 1, {.SelColor = 1});
  Format(1, 1, {.SelColor = 2});
  Format(2, 2, {.SelColor = 3});
  Format(4, 1, {.SelColor = 4});
  Format(5, 1, {.SelColor = 5});
  EXPECT_EQ(FormatOf(0, 0).SelColor, 1); // at a line's start like the one behind it
  EXPECT_EQ(FormatOf(1, 0).SelColor, 1);
  EXPECT_EQ(FormatOf(2, 0).SelColor, 2);
  EXPECT_EQ(FormatOf(4, 0).SelColor, 4);
  EXPECT_EQ(FormatOf(5, 0).SelColor, 4);
  EXPECT_EQ(FormatOf(6, 0).SelColor, 5);
}

TEST_P(RichTextFormatContract, TheCaretsValuesAreForgottenWhenTheSelectionIsSet) {
  Load(u"ab");
  Format(1, 0, {.SelColor = 0xFF});
  EXPECT_EQ(box->SelFormat().SelColor, 0xFF);
  box->SelStart(1);
  EXPECT_EQ(box->SelFormat().SelColor, 0);
}

TEST_P(RichTextFormatContract, TextTakesTheLookOfTheCaret) {
  Load(u"ab\r\ncd");
  box->SelStart(1);
  box->SelFormat({.SelItalic = true});
  box->SelText(u"x\r\ny");
  EXPECT_EQ(FormatOf(1, 4).SelItalic, true);
  EXPECT_EQ(FormatOf(0, 1).SelItalic, false);
  EXPECT_EQ(FormatOf(5, 1).SelItalic, false);
}

TEST_P(RichTextFormatContract, TextTakesTheLookOfTheSelectionsFirstCharacter) {
  Load(u"abcd");
  Format(1, 1, {.SelColor = 1});
  Format(2, 1, {.SelColor = 2});
  Select(1, 2);
  box->SelText(u"xyz");
  EXPECT_EQ(FormatOf(1, 3).SelColor, 1);
}

TEST_P(RichTextFormatContract, AMarkerMayBeWrittenInAColourOfItsOwn) {
  Load(u"a\r\n");
  box->SelStart(box->TextLength() + 1);
  const SelectionFormat before = box->SelFormat();
  box->SelFormat({.SelColor = 0xFFFFFF});
  box->SelText(u"®");
  box->SelFormat({.SelColor = before.SelColor});
  box->SelText(u"b");
  EXPECT_EQ(FormatOf(3, 1).SelColor, 0xFFFFFF);
  EXPECT_EQ(FormatOf(4, 1).SelColor, 0);
}

TEST_P(RichTextFormatContract, TheWholeTextTakesTheLookOfTheSelectionsStart) {
  Load(u"ab");
  Format(1, 1, OtherFormat());
  Select(1, 1);
  box->Text(u"x\r\ny");
  EXPECT_EQ(FormatOf(0, 4), OtherFormat());
}

TEST_P(RichTextFormatContract, TheEmptyTextKeepsTheLookOfTheCaret) {
  Load(u"ab");
  Select(1, 1);
  box->SelFormat(OtherFormat());
  box->Text(u"");
  EXPECT_EQ(box->SelFormat(), OtherFormat());
  box->SelStart(0);
  EXPECT_EQ(box->SelFormat(), OtherFormat());
}

TEST_P(RichTextFormatContract, NewLinesHaveTheLookOfTheParagraph) {
  Load(u"ab");
  Format(1, 0, {.SelIndent = 150});
  box->SelText(u"x\r\ny\r\n");
  EXPECT_EQ(FormatOf(0, 9).SelIndent, 150);
}

TEST_P(RichTextFormatContract, AJoinedLineKeepsTheFirstOnesParagraph) {
  Load(u"ab\r\ncd");
  Format(0, 0, {.SelIndent = 1});
  Format(4, 0, {.SelIndent = 2});
  Select(1, 4);
  box->SelText(u"");
  EXPECT_EQ(box->Text(), u"ad");
  EXPECT_EQ(FormatOf(0, 2).SelIndent, 1);
}

TEST_P(RichTextFormatContract, WhereNothingOfTheFirstLineRemainsTheSecondsParagraphDoes) {
  Load(u"ab\r\ncd\r\nef");
  Format(0, 0, {.SelIndent = 1});
  Format(4, 0, {.SelIndent = 2});
  Format(8, 0, {.SelIndent = 3});
  Select(0, 4);
  box->SelText(u"");
  EXPECT_EQ(FormatOf(0, 2).SelIndent, 2);
  Select(0, 5);
  box->SelText(u"");
  EXPECT_EQ(box->Text(), u"f");
  EXPECT_EQ(FormatOf(0, 1).SelIndent, 3);
}

TEST_P(RichTextFormatContract, SizesAndOffsetsAreRoundedToHalfAPoint) {
  for (const auto& [set, read] : {std::pair{10.2, 10.0}, {10.25, 10.5}, {10.5, 10.5}, {0.5, 0.5}, {1638.0, 1638.0}}) {
    box->SelFormat({.SelFontSize = set});
    EXPECT_EQ(box->SelFormat().SelFontSize, read);
  }
  for (const auto& [set, read] : {std::pair{4, 0}, {5, 10}, {-4, 0}, {-5, -10}, {14, 10}, {31680, 31680}}) {
    box->SelFormat({.SelCharOffset = set});
    EXPECT_EQ(box->SelFormat().SelCharOffset, read);
  }
}

TEST_P(RichTextFormatContract, ValuesOutsideTheirRangeRaise380AndChangeNothing) {
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
  std::vector<SelectionFormat> refused = {
      {.SelFontName = u""},
      {.SelFontName = String(101, u'x')},
      {.SelFontSize = 0.4},
      {.SelFontSize = 1638.5},
      {.SelFontSize = -10},
      {.SelFontSize = std::numeric_limits<double>::quiet_NaN()},
      {.SelFontSize = std::numeric_limits<double>::infinity()},
  };
  for (const std::int32_t value : {-1, 3, most, least}) refused.push_back({.SelAlignment = value});
  for (const std::int32_t value : {-1, 0x1000000, most, least}) refused.push_back({.SelColor = value});
  for (const std::int32_t value : {31681, -31681, most, least}) {
    refused.push_back({.SelCharOffset = value});
    refused.push_back({.SelIndent = value});
    refused.push_back({.SelHangingIndent = value});
    refused.push_back({.SelRightIndent = value});
  }
  Load(u"abc");
  Select(0, 2);
  for (SelectionFormat& values : refused) {
    values.SelBold = true;
    EXPECT_EQ(Raised([&] { box->SelFormat(values); }).Number, 380);
    EXPECT_EQ(box->SelFormat(), StandardFormat());
  }
}

TEST_P(RichTextFormatContract, ValuesAtTheEndsOfTheirRangesAreTaken) {
  const SelectionFormat least = {.SelAlignment = 0,
                                 .SelHangingIndent = -31680,
                                 .SelIndent = -31680,
                                 .SelRightIndent = -31680,
                                 .SelCharOffset = -31680,
                                 .SelColor = 0,
                                 .SelFontName = u"x",
                                 .SelFontSize = 0.5};
  const SelectionFormat most = {.SelAlignment = 2,
                                .SelHangingIndent = 31680,
                                .SelIndent = 31680,
                                .SelRightIndent = 31680,
                                .SelCharOffset = 31680,
                                .SelColor = 0xFFFFFF,
                                .SelFontName = String(100, u'x'),
                                .SelFontSize = 1638};
  Load(u"abc");
  for (const SelectionFormat& values : {least, most}) {
    Format(0, 3, values);
    SelectionFormat expected = values;
    expected.SelBullet = expected.SelBold = expected.SelItalic = expected.SelStrikeThru = expected.SelUnderline = false;
    EXPECT_EQ(box->SelFormat(), expected);
    EXPECT_EQ(Loaded(box->SelRTF())->SelFormat(), expected);
  }
}

} // namespace
} // namespace portico::test
