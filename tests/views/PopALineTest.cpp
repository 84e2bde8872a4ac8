#include "views/CPopALine.h"

#include "views/ViewFixture.h"

namespace portico::test {
namespace {

class PopALine : public ViewFixture {
protected:
  PopALine() { Popper.CmdQueue(Box); }

  /// "kind: line" of the next line.
  std::string Pop() {
    LineKind kind = LineKind::None;
    const String line = Popper.Pop(kind);
    return std::to_string(static_cast<int>(kind)) + ": " + Escaped(line);
  }
  std::string Left() const { return Shown(); }
  static SelectionFormat Italic() {
    SelectionFormat format;
    format.SelItalic = true;
    return format;
  }

  CPopALine Popper;
};

TEST_F(PopALine, KindsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(LineKind::CmdBlank), 1);
  EXPECT_EQ(static_cast<int>(LineKind::CmdAutomatic), 2);
  EXPECT_EQ(static_cast<int>(LineKind::CmdInstruction), 3);
  EXPECT_EQ(static_cast<int>(LineKind::CmdRemark), 4);
  EXPECT_EQ(static_cast<int>(LineKind::CmdResponse), 5);
  EXPECT_EQ(static_cast<int>(LineKind::CmdEnd), 6);
}

TEST_F(PopALine, OfAnEmptyWindowIsCharacter26) {
  LineKind kind = LineKind::None;
  EXPECT_EQ(Popper.Pop(kind), String(1, char16_t{26}));
  EXPECT_EQ(kind, LineKind::CmdEnd);
  EXPECT_EQ(Writes(Calls), std::vector<std::string>{});
  EXPECT_EQ(Loop->Turns, 1);
}

TEST_F(PopALine, TakesOneLineWithItsLineEnd) {
  Box->Type(u"*RST\r\n*IDN?\r\n");
  EXPECT_EQ(Pop(), "3: *RST");
  EXPECT_EQ(Left(), "*IDN?\\r\\n");
  EXPECT_EQ(Pop(), "3: *IDN?");
  EXPECT_EQ(Left(), "");
  EXPECT_EQ(Pop(), "6: \x1A");
}

TEST_F(PopALine, FindsTheLineEndFromTheFrontAndDeletesTheRawLine) {
  Box->Type(u"  ab\r\ncd");
  Box->PlaceCaret(7);
  Pop();
  const auto writes = Writes(Calls);
  ASSERT_GE(writes.size(), 4U);
  EXPECT_EQ(writes.front(), "Find \\r\\n 0");
  EXPECT_EQ(writes[writes.size() - 2], "SelLength 6");
  EXPECT_EQ(writes.back(), "SelRTF ");
}

TEST_F(PopALine, LosesLeadingBlanksAndKeepsTrailingOnes) {
  Box->Type(u"   *IDN?  \r\n");
  EXPECT_EQ(Pop(), "3: *IDN?  ");
  EXPECT_EQ(Left(), "");
}

TEST_F(PopALine, KeepsTabs) {
  Box->Type(u"\t*IDN?\r\n \t\r\n");
  EXPECT_EQ(Pop(), "3: \t*IDN?");
  EXPECT_EQ(Pop(), "3: \t");
}

TEST_F(PopALine, RemarkIsTheUpperCaseWordWithABlank) {
  Box->Type(u"REM one\r\n   REM two\r\nREM \r\nRem three\r\nrem four\r\nREM\r\nREMARK\r\nREM\tfive\r\n");
  EXPECT_EQ(Pop(), "4: REM one");
  EXPECT_EQ(Pop(), "4: REM two");
  EXPECT_EQ(Pop(), "4: REM ");
  EXPECT_EQ(Pop(), "3: Rem three");
  EXPECT_EQ(Pop(), "3: rem four");
  EXPECT_EQ(Pop(), "3: REM");
  EXPECT_EQ(Pop(), "3: REMARK");
  EXPECT_EQ(Pop(), "3: REM\tfive");
}

TEST_F(PopALine, RemarkInTheMiddleIsPartOfTheLine) {
  Box->Type(u"*IDN? REM who\r\n");
  EXPECT_EQ(Pop(), "3: *IDN? REM who");
}

TEST_F(PopALine, FunctionNamesMeanNothing) {
  for (const auto* word :
       {u"OPEN", u"CLOSE", u"READ", u"WRITE a", u"GETATTRIBUTE a", u"SETATTRIBUTE a b", u"SET", u"GET"}) {
    Box->Type(String(word) + u"\r\n");
    EXPECT_EQ(Pop(), "3: " + ToUtf8(word));
  }
}

TEST_F(PopALine, EmptyLinesAreBlankOneByOne) {
  Box->Type(u"\r\n\r\nlast\r\n");
  EXPECT_EQ(Pop(), "1: ");
  EXPECT_EQ(Pop(), "1: ");
  EXPECT_EQ(Pop(), "3: last");
}

TEST_F(PopALine, LineOfBlanksWithALineEndIsBlankAndGoes) {
  Box->Type(u"   \r\nx");
  EXPECT_EQ(Pop(), "1: ");
  EXPECT_EQ(Left(), "x");
}

TEST_F(PopALine, LastLineNeedsNoLineEnd) {
  Box->Type(u"*RST\r\n*IDN? ");
  Pop();
  EXPECT_EQ(Pop(), "3: *IDN? ");
  EXPECT_EQ(Left(), "");
  EXPECT_EQ(Pop(), "6: \x1A");
}

TEST_F(PopALine, LastLineWithLeadingBlanksLeavesItsTail) {
  Box->Type(u"  *IDN?");
  EXPECT_EQ(Pop(), "3: *IDN?");
  EXPECT_EQ(Left(), "N?");
  EXPECT_EQ(Pop(), "3: N?");
  EXPECT_EQ(Left(), "");
}

TEST_F(PopALine, LastLineIsDeletedFromTheFrontByItsTrimmedLength) {
  Box->Type(u"  abc");
  Pop();
  EXPECT_EQ(Writes(Calls), (std::vector<std::string>{"Find \\r\\n 0", "SelStart 0", "SelLength 3", "SelRTF "}));
}

TEST_F(PopALine, LastLineOfBlanksIsBlankForEver) {
  Box->Type(u"   ");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Pop(), "1: ");
  EXPECT_EQ(Left(), "   ");
}

TEST_F(PopALine, MarkersMakeAnswersAndAutomaticLines) {
  Box->Type(u"\u00AEok\r\n  \u00AE\r\n\u00A9*OPC?\r\n\u00A9REM x\r\n\u00AE");
  EXPECT_EQ(Pop(), "5: \u00AEok");
  EXPECT_EQ(Pop(), "5: \u00AE");
  EXPECT_EQ(Pop(), "2: \u00A9*OPC?");
  EXPECT_EQ(Pop(), "2: \u00A9REM x");
  EXPECT_EQ(Pop(), "5: \u00AE");
}

TEST_F(PopALine, MarkersInsideALineMeanNothing) {
  Box->Type(u"a\u00AE\r\nb\u00A9\r\n");
  EXPECT_EQ(Pop(), "3: a\u00AE");
  EXPECT_EQ(Pop(), "3: b\u00A9");
}

TEST_F(PopALine, MarkerCountsInAnyColor) {
  SelectionFormat green;
  green.SelColor = 0x00FF00;
  Box->Type(u"\u00AEok\r\n", green);
  EXPECT_EQ(Pop(), "5: \u00AEok");
}

TEST_F(PopALine, ItalicLineIsAnAnswerWithAMarkerPutInFront) {
  Box->Type(u"  1.25\r\n", Italic());
  EXPECT_EQ(Pop(), "5: \u00AE1.25");
}

TEST_F(PopALine, ItalicLineThatHasItsMarkerGetsASecondOne) {
  Box->Type(u"\u00AE1.25\r\n", Italic());
  EXPECT_EQ(Pop(), "5: \u00AE\u00AE1.25");
}

TEST_F(PopALine, ItalicBlankLineIsAnAnswer) {
  Box->Type(u"  \r\n", Italic());
  EXPECT_EQ(Pop(), "5: \u00AE");
}

TEST_F(PopALine, ItalicRemarkAndItalicAutomaticLineAreAnswers) {
  Box->Type(u"REM a\r\n\u00A9b\r\n", Italic());
  EXPECT_EQ(Pop(), "5: \u00AEREM a");
  EXPECT_EQ(Pop(), "5: \u00AE\u00A9b");
}

TEST_F(PopALine, PartlyItalicLineIsNoAnswer) {
  Box->Type(u"1.2", Italic());
  Box->Type(u"5");
  Box->Type(u"\r\n", Italic());
  Box->Type(u"1.25", Italic());
  Box->Type(u"\r\n");
  Box->Type(u" ");
  Box->Type(u"1.25\r\n", Italic());
  EXPECT_EQ(Pop(), "3: 1.25");
  EXPECT_EQ(Pop(), "3: 1.25"); // its line end is upright
  EXPECT_EQ(Pop(), "3: 1.25"); // its leading blank is
}

TEST_F(PopALine, LastLineWithoutALineEndHasNoItalicTest) {
  Box->Type(u"1.25", Italic());
  EXPECT_EQ(Pop(), "3: 1.25");
}

TEST_F(PopALine, LineOfCharacter26IsTextButNotTheEnd) {
  Box->Type(u"\x1A\r\n");
  EXPECT_EQ(Pop(), "3: \x1A");
}

TEST_F(PopALine, GivesTheLoopATurnWhileTheLineIsOffTheWindow) {
  Box->Type(u"one\r\ntwo\r\n");
  std::vector<std::string> seen;
  Loop->OnTurn = [&] { seen.push_back(Left()); };
  EXPECT_EQ(Pop(), "3: one");
  EXPECT_EQ(seen, std::vector<std::string>{"two\\r\\n"});
}

TEST_F(PopALine, KeepsNoPositionOverEditsBetweenLines) {
  Box->Type(u"one\r\ntwo\r\n");
  Loop->OnTurn = [&] {
    Loop->OnTurn = {};
    Box->SelStart(0);
    Box->SelText(u"new\r\n");
  };
  EXPECT_EQ(Pop(), "3: one");
  EXPECT_EQ(Pop(), "3: new");
  EXPECT_EQ(Pop(), "3: two");
}

TEST_F(PopALine, ErrorDuringTheTurnPassesAndLeavesTheLineDeleted) {
  Box->Type(u"one\r\ntwo\r\n");
  Loop->OnTurn = [] { HuntERR::Raise(7, u"handler", u"A handler failed."); };
  ExpectTrail(Raised([&] { Pop(); }), {});
  EXPECT_EQ(Left(), "two\\r\\n");
}

TEST_F(PopALine, WithoutABoxFailsOnTheUnsetReference) {
  CPopALine popper;
  LineKind kind = LineKind::None;
  EXPECT_EQ(Raised([&] { popper.Pop(kind); }).Number, 91);
}

using PopInstruction = PopALine;

TEST_F(PopInstruction, TakesTheCharactersInFrontOfTheLineEnd) {
  Box->Type(u"  ab \r\ncd");
  EXPECT_EQ(ToUtf8(CPopInstruction().Pop(Box)), "  ab ");
  EXPECT_EQ(Left(), "\\r\\ncd");
  EXPECT_EQ(ToUtf8(CPopInstruction().Pop(Box)), "");
  EXPECT_EQ(Left(), "\\r\\ncd");
}

TEST_F(PopInstruction, TakesALastLineWhole) {
  Box->Type(u"ab");
  EXPECT_EQ(ToUtf8(CPopInstruction().Pop(Box)), "ab");
  EXPECT_EQ(Left(), "");
  EXPECT_EQ(ToUtf8(CPopInstruction().Pop(Box)), "");
}

TEST_F(PopInstruction, StopsAtALoneLineFeed) {
  Box->Type(u"a\nb");
  EXPECT_EQ(ToUtf8(CPopInstruction().Pop(Box)), "a");
}

TEST_F(PopInstruction, DeletesOneCharacterAtATime) {
  Box->Type(u"ab");
  CPopInstruction().Pop(Box);
  EXPECT_EQ(Writes(Calls), (std::vector<std::string>{"SelStart 0", "SelLength 1", "SelText ", "SelStart 0",
                                                     "SelLength 1", "SelText "}));
}

} // namespace
} // namespace portico::test
