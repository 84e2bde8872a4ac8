#include "views/AnswerAtCaret.h"

#include "memory/RichTextBox.h"
#include "views/CSCPIView.h"
#include "views/CSCPIViewHistory.h"
#include "views/RunFixture.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

class AnswerAtCaretTest : public RunFixture {
protected:
  AnswerAtCaretTest() {
    gScratchArea = New<WindowDouble>(WindowCalls); // with an area that knows RTF
    History->Initialize(Past);
    Answers = New<AnswerAtCaret>(History, Past);
  }

  void Show(StringView text, StringView type) { History->Instructions()->Enqueue(Entity(text, type)); }
  void ShowAnswer(StringView text) { Show(text, DataTypeName::Response); }
  std::optional<String> At(std::int32_t position) const {
    Past->SelStart(position);
    EXPECT_EQ(Answers->IsThere(), Answers->Find().has_value());
    return Answers->Find();
  }
  /// The answers for all places of the caret, one after the other: 1 for each that is in the answer.
  std::string PlacesOf(StringView answer) const {
    std::string places;
    for (std::int32_t i = 0; i <= Past->TextLength(); ++i) places += At(i) == String(answer) ? '1' : '-';
    return places;
  }

  Journal WindowCalls;
  Ref<memory::RichTextBox> Past = New<memory::RichTextBox>();
  Ref<CSCPIViewHistory> History = New<CSCPIViewHistory>();
  Ref<AnswerAtCaret> Answers;
};

TEST_F(AnswerAtCaretTest, ThereIsNoneInAnEmptyBox) { EXPECT_EQ(At(0), std::nullopt); }

TEST_F(AnswerAtCaretTest, AnswerReachesFromItsHiddenMarkToItsLineEnd) {
  Show(u"A?\r\n", DataTypeName::Instruction);
  ShowAnswer(u"one\r\n");
  Show(u"B\r\n", DataTypeName::Instruction);
  ASSERT_EQ(Past->Text(), u"A?\r\n\u00AEone\r\nB\r\n");
  EXPECT_EQ(PlacesOf(u"one"), "----111111----");
}

TEST_F(AnswerAtCaretTest, AtTheTextsEndTheNewestAnswerIsAtHand) {
  ShowAnswer(u"1\r\n");
  ShowAnswer(u"2\r\n");
  EXPECT_EQ(PlacesOf(u"1"), "1111-----");
  EXPECT_EQ(PlacesOf(u"2"), "----11111");
}

TEST_F(AnswerAtCaretTest, WhatIsNoAnswerIsNone) {
  Show(u"A?\r\n", DataTypeName::AutomaticInstruction);
  Show(u"set\r\n", DataTypeName::Configuration);
  Show(u"opened\r\n", {});
  for (std::int32_t i = 0; i <= Past->TextLength(); ++i) EXPECT_EQ(At(i), std::nullopt);
}

TEST_F(AnswerAtCaretTest, AnswerOfSeveralLinesIsOne) {
  ShowAnswer(u"one\r\ntwo\nthree\r\n");
  EXPECT_EQ(At(8), u"one\r\ntwo\nthree");
}

TEST_F(AnswerAtCaretTest, AnswerIsAsItCameWhateverTheBoxShows) {
  ShowAnswer(u"{\"volt\":1.5} C:\\data\r\n");
  ASSERT_EQ(Past->Text(), u"\u00AE\"volt\":1.5 C:\r\n");
  EXPECT_EQ(At(3), u"{\"volt\":1.5} C:\\data");
}

TEST_F(AnswerAtCaretTest, BlockKeepsTheLineEndThatIsItsOwn) {
  ShowAnswer(u"#15abc\r\n");
  EXPECT_EQ(At(3), u"#15abc\r\n");
}

TEST_F(AnswerAtCaretTest, RemarksMoveWhatComesBehindThem) {
  Past->SelText(u"REM see\r\n");
  ShowAnswer(u"1\r\n");
  EXPECT_EQ(PlacesOf(u"1"), "---------11111");
}

TEST_F(AnswerAtCaretTest, EmptiedBoxHasNone) {
  ShowAnswer(u"1\r\n");
  History->Clear();
  EXPECT_EQ(At(0), std::nullopt);
  Show(u"longer than it was\r\n", DataTypeName::Instruction);
  EXPECT_EQ(At(1), std::nullopt);
  ShowAnswer(u"2\r\n");
  EXPECT_EQ(At(Past->TextLength()), u"2");
}

TEST_F(AnswerAtCaretTest, StartOfTheSelectionCounts) {
  ShowAnswer(u"1\r\n");
  ShowAnswer(u"2\r\n");
  Past->SelStart(1);
  Past->SelLength(5);
  EXPECT_EQ(Answers->Find(), u"1");
}

TEST_F(AnswerAtCaretTest, ViewOfAnotherKindTellsItsAnswers) {
  const auto box = New<memory::RichTextBox>();
  const auto view = New<CSCPIView>();
  view->Initialize(box);
  const AnswerAtCaret answers(view, box);
  view->Instructions()->Enqueue(Entity(u"A?\r\n", DataTypeName::Instruction));
  view->Instructions()->Enqueue(Entity(u"1\r\n", DataTypeName::Response));
  box->SelStart(5);
  EXPECT_EQ(answers.Find(), u"1");
}

} // namespace
} // namespace portico::test
