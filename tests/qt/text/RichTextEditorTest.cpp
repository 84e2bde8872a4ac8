// What the user does in the box.

#include "contract/RichTextBench.h"
#include "framework/errors/Quit.h"
#include "qt/text/TextBench.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace portico::test {
namespace {

class RichTextEditorTest : public testing::Test, protected TextWindow {
protected:
  void Put(StringView text) {
    box.Text(text);
    Settle();
    changes = 0;
  }
  void Compose(const QString& preedit, const QString& commit) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&View(), &event);
  }
};

TEST_F(RichTextEditorTest, TypingReachesTheBoxAtOnce) {
  Type("ab");
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(changes, 2);
}

TEST_F(RichTextEditorTest, ReturnAndShiftReturnEndALine) {
  Type("a\nb");
  Key(Qt::Key_Return, Qt::ShiftModifier, "\r");
  Type("c");
  EXPECT_EQ(box.Text(), u"a\r\nb\r\nc");
  EXPECT_EQ(box.SelStart(), 7);
  EXPECT_EQ(changes, 5);
  ExpectShown(box);
}

TEST_F(RichTextEditorTest, ChangeFiresWhenAllIsInPlace) {
  Put(u"ab");
  String text;
  std::int32_t start = 0;
  box.Change().Connect([&] {
    text = box.Text();
    start = box.SelStart();
  });
  Key(Qt::Key_Right);
  Type("x");
  EXPECT_EQ(text, u"axb");
  EXPECT_EQ(start, 2);
}

TEST_F(RichTextEditorTest, AHandlerMayChangeTheText) {
  bool isFirst = true;
  box.Change().Connect([&] {
    if (!std::exchange(isFirst, false)) return;
    box.SelText(u"yz");
  });
  Type("xw");
  EXPECT_EQ(box.Text(), u"xyzw");
  ExpectShown(box);
}

TEST_F(RichTextEditorTest, QuitOfAHandlerGoesNoFurther) {
  box.Change().Connect([] { throw Quit(); });
  Type("ab");
  EXPECT_EQ(box.Text(), u"ab");
}

TEST_F(RichTextEditorTest, AHandlerMayLetTheBoxGo) {
  QWidget parent;
  auto other = std::make_unique<qt::RichTextBox>(ControlDesign{.Kind = ControlKind::RichTextBox, .Name = u"txtOther"},
                                                 parent, u"Sans", 10);
  qt::TextView& view = *other->Widget();
  other->Change().Connect([&] { other.reset(); });
  QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
  QApplication::sendEvent(&view, &press);
  EXPECT_EQ(other, nullptr);
  QApplication::sendEvent(&view, &press);
  EXPECT_EQ(view.toPlainText(), "aa");
}

TEST_F(RichTextEditorTest, TheBoxOutlivesItsWindow) {
  auto parent = std::make_unique<QWidget>();
  qt::RichTextBox other({.Kind = ControlKind::RichTextBox, .Name = u"txtOther"}, *parent, u"Sans", 10);
  parent.reset();
  other.Text(u"ab");
  other.Move(1, 1, 1, 1);
  other.TabStop(false);
  other.Locked(true);
  other.SetFocus();
  QApplication::processEvents();
  EXPECT_EQ(other.Widget(), nullptr);
  EXPECT_EQ(other.Text(), u"ab");
  EXPECT_EQ(other.Width(), 0);
}

TEST_F(RichTextEditorTest, KeysThatChangeNothingFireNothing) {
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(changes, 0);
}

TEST_F(RichTextEditorTest, DeletingJoinsLines) {
  Put(u"ab\r\n\r\ncd");
  Key(Qt::Key_End);
  Key(Qt::Key_Delete);
  EXPECT_EQ(box.Text(), u"ab\r\ncd");
  Key(Qt::Key_Delete);
  EXPECT_EQ(box.Text(), u"abcd");
  EXPECT_EQ(changes, 2);
  ExpectShown(box);
}

TEST_F(RichTextEditorTest, TheUsersSelectionIsTheBoxes) {
  Put(u"ab\r\ncd\r\nef");
  SelectInView(7, 1);
  EXPECT_EQ(box.SelStart(), 1);
  EXPECT_EQ(box.SelLength(), 8);
  EXPECT_EQ(box.SelText(), u"b\r\ncd\r\ne");
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(box.SelLength(), 10);
  EXPECT_EQ(changes, 0);
}

TEST_F(RichTextEditorTest, TheProgramsSelectionIsShown) {
  Put(u"ab\r\ncd");
  box.SelStart(1);
  box.SelLength(4);
  Settle();
  EXPECT_EQ(View().textCursor().selectionStart(), 1);
  EXPECT_EQ(View().textCursor().selectionEnd(), 4);
  Type("x");
  EXPECT_EQ(box.Text(), u"axd");
}

TEST_F(RichTextEditorTest, ASelectionMadeBackwardsStaysSo) {
  Put(u"abcd");
  SelectInView(3, 1);
  box.SelFormat({.SelBold = true});
  Settle();
  EXPECT_EQ(View().textCursor().anchor(), 3);
  EXPECT_EQ(View().textCursor().position(), 1);
}

TEST_F(RichTextEditorTest, WhatWasReplacedIsUpToDateBeforeAKeyActs) {
  Put(u"old");
  box.Text(u"new\r\ntext");
  box.SelStart(3);
  Type("er");
  EXPECT_EQ(box.Text(), u"newer\r\ntext");
}

TEST_F(RichTextEditorTest, TypedTextLooksAsTheProgramSaid) {
  box.SelFormat({.SelBold = true, .SelColor = 0x0000FF});
  Type("ab");
  box.SelStart(0);
  box.SelLength(2);
  EXPECT_EQ(box.SelFormat().SelBold, true);
  EXPECT_EQ(box.SelFormat().SelColor, 0x0000FF);
}

TEST_F(RichTextEditorTest, TypedTextLooksLikeWhatItReplaces) {
  Put(u"abcd");
  box.SelStart(1);
  box.SelLength(2);
  box.SelFormat({.SelItalic = true});
  Type("x");
  EXPECT_EQ(box.Text(), u"axd");
  box.SelStart(1);
  box.SelLength(1);
  EXPECT_EQ(box.SelFormat().SelItalic, true);
  SelectInView(0, 2);
  Type("y");
  box.SelStart(0);
  box.SelLength(1);
  EXPECT_EQ(box.SelFormat().SelItalic, false);
}

TEST_F(RichTextEditorTest, TypedTextInAnEmptyLineLooksLikeItsLineEnd) {
  Put(u"a\r\n\r\nb");
  box.SelStart(3);
  box.SelLength(2);
  box.SelFormat({.SelItalic = true});
  box.SelStart(3);
  Type("x");
  box.SelStart(3);
  box.SelLength(1);
  EXPECT_EQ(box.SelText(), u"x");
  EXPECT_EQ(box.SelFormat().SelItalic, true);
}

TEST_F(RichTextEditorTest, EveryLookComesBackFromTheDocument) {
  const SelectionFormat look = OtherFormat();
  Put(u"abc\r\ndef");
  box.SelStart(0);
  box.SelLength(5);
  box.SelFormat(look);
  Settle();
  SelectInView(1, 2);
  Key(Qt::Key_Delete);
  EXPECT_EQ(box.Text(), u"ac\r\ndef");
  box.SelStart(0);
  box.SelLength(4);
  EXPECT_EQ(box.SelFormat(), look);
  box.SelStart(4);
  box.SelLength(3);
  EXPECT_EQ(box.SelFormat().SelBold, false);
}

TEST_F(RichTextEditorTest, EveryUnitComesBackFromTheDocument) {
  const String strange = u"\u00A0\u2028\u2029\uFDD0\uFDD1\uFFFC\uFFFD\u2026\t";
  Put(strange);
  Key(Qt::Key_Right);
  Type("x");
  EXPECT_EQ(box.Text(), String(u"\u00A0x") + strange.substr(1));
  SelectInView(3, 3);
  Type("y");
  EXPECT_EQ(box.Text(), String(u"\u00A0x\u2028y") + strange.substr(2));
  ExpectShown(box);
}

TEST_F(RichTextEditorTest, ALineSeparatorThatTheUserBringsEndsALine) {
  Put(u"ab");
  Compose({}, QString("x\u2028y"));
  EXPECT_EQ(box.Text(), u"x\r\nyab");
  ExpectShown(box);
}

TEST_F(RichTextEditorTest, ComposedTextComesWhenItIsDone) {
  Compose("ni", {});
  EXPECT_EQ(box.Text(), u"");
  EXPECT_EQ(changes, 0);
  Compose({}, QString("\u4F60"));
  EXPECT_EQ(box.Text(), u"\u4F60");
  EXPECT_EQ(changes, 1);
}

TEST_F(RichTextEditorTest, ComposedTextReplacesTheSelectionInItsLook) {
  Put(u"abcd");
  box.SelStart(1);
  box.SelLength(2);
  box.SelFormat({.SelItalic = true});
  Compose({}, "x");
  EXPECT_EQ(box.Text(), u"axd");
  box.SelStart(1);
  box.SelLength(1);
  EXPECT_EQ(box.SelFormat().SelItalic, true);
}

TEST_F(RichTextEditorTest, UndoTakesTypingBack) {
  Put(u"ab");
  Key(Qt::Key_End);
  Type("cd");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"ab");
  EXPECT_EQ(changes, 3);
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(box.Text(), u"abcd");
}

TEST_F(RichTextEditorTest, UndoTakesNothingBackThatTheProgramDid) {
  Type("ab");
  box.SelText(u"cd");
  Settle();
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"abcd");
  Type("e");
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"abcd");
}

TEST_F(RichTextEditorTest, UndoWorksOnWhenTheProgramOnlySelects) {
  Type("ab");
  box.SelStart(0);
  Settle();
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), u"");
}

TEST_F(RichTextEditorTest, EditsThroughNoKeyAreNoticedToo) {
  View().textCursor().insertText("ab\ncd");
  EXPECT_EQ(box.Text(), u"ab\r\ncd");
  EXPECT_EQ(changes, 0);
  QApplication::processEvents();
  EXPECT_EQ(changes, 1);
  View().undo();
  EXPECT_EQ(box.Text(), u"");
}

TEST_F(RichTextEditorTest, AnEditOfATextThatIsNotUpToDateIsUndone) {
  Put(u"abc");
  box.Text(u"xyz");
  View().textCursor().insertText("!");
  EXPECT_EQ(box.Text(), u"xyz");
  Settle();
  ExpectShown(box);
}

TEST_F(RichTextEditorTest, TheProgramsEditsWaitForTheNextFrame) {
  Put(u"a");
  for (int i = 0; i < 100; ++i) {
    box.SelStart(box.TextLength() + 1);
    box.SelText(u"b\r\n");
  }
  EXPECT_EQ(View().blockCount(), 1);
  EXPECT_EQ(box.GetLineFromChar(box.TextLength()), 100);
  Settle();
  EXPECT_EQ(View().blockCount(), 101);
}

TEST_F(RichTextEditorTest, LockedTextIsSelectedAndCopiedButNotChanged) {
  Put(u"ab\r\ncd");
  box.Locked(true);
  Type("x\n");
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Delete);
  Key(Qt::Key_V, Qt::ControlModifier);
  Compose({}, "y");
  EXPECT_EQ(box.Text(), u"ab\r\ncd");
  EXPECT_EQ(changes, 0);
  Key(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(box.SelText(), u"a");
  Key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(box.SelText(), u"ab\r\ncd");
  EXPECT_TRUE(View().focusPolicy() & Qt::ClickFocus);
  box.SelText(u"new");
  Settle();
  EXPECT_EQ(ShownText(box), u"new");
  box.Locked(false);
  Type("er");
  EXPECT_EQ(box.Text(), u"newer");
}

TEST_F(RichTextEditorTest, ControlAndTabMakesATab) {
  Key(Qt::Key_Tab, Qt::ControlModifier, "\t");
  EXPECT_EQ(box.Text(), u"\t");
}

} // namespace
} // namespace portico::test
