// A line of a megabyte: all of it is in the box, and not all of it is laid out.

#include "qt/text/TextBench.h"
#include "qt/text/TextClipboard.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QClipboard>
#include <QTextBlock>
#include <QTextLayout>

namespace portico::test {
namespace {

constexpr std::int32_t Head = qt::TextBlocks::HeadShown;
constexpr std::int32_t Tail = qt::TextBlocks::TailShown;
constexpr std::int32_t Mega = 1'000'000;

class LongLineTest : public testing::Test, protected TextWindow {
protected:
  LongLineTest() {
    window.show();
    for (std::int64_t i = 0; m_line.size() < Mega; ++i) m_line += ToText(i) + u",";
    m_line.resize(Mega);
    box.Text(u"first\r\n" + m_line + u"\r\nlast");
    Settle();
    changes = 0;
  }
  QTextBlock Block() const { return View().document()->findBlockByNumber(1); }
  int Start() const { return Block().position(); }

  String m_line;
};

TEST_F(LongLineTest, ItsStartAndEndAreShown) {
  ExpectShown(box);
  EXPECT_EQ(Block().length(), Head + 1 + Tail + 1);
  EXPECT_EQ(box.TextLength(), 5 + 2 + Mega + 2 + 4);
}

TEST_F(LongLineTest, ALineThatIsShownWholeIsNotCut) {
  const String longest(qt::TextBlocks::LongestShown, u'x');
  box.Text(longest);
  box.Show();
  EXPECT_EQ(ShownText(box), longest);
  box.Text(longest + u"x");
  box.Show();
  EXPECT_EQ(View().document()->characterCount(), Head + 1 + Tail + 1);
}

TEST_F(LongLineTest, NoCharacterIsCutInTwo) {
  String pairs;
  for (int i = 0; i < 20'000; ++i) pairs += u"\U0001F600";
  box.Text(u"x" + pairs);
  box.Show();
  const String shown = ShownText(box);
  const std::size_t mark = shown.find(u'\u2026');
  EXPECT_EQ(shown[mark - 1], u"\U0001F600"[1]);
  EXPECT_EQ(shown[mark + 1], u"\U0001F600"[0]);
}

TEST_F(LongLineTest, AllOfItIsCopied) {
  SelectInView(0, View().document()->characterCount() - 1);
  EXPECT_EQ(box.SelText(), box.Text());
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(qt::FromQt(QApplication::clipboard()->text()) == u"first\n" + m_line + u"\nlast");
  const auto read = qt::FromClipboard(*QApplication::clipboard()->mimeData(), {});
  EXPECT_TRUE(read.at(1).Text == m_line);
}

TEST_F(LongLineTest, APartAcrossWhatIsNotShownIsCopiedWhole) {
  SelectInView(Start() + Head - 3, Start() + Head + 1 + 2);
  EXPECT_EQ(box.SelStart(), 7 + Head - 3);
  EXPECT_TRUE(box.SelText() == m_line.substr(Head - 3, Mega - Tail - Head + 5));
}

TEST_F(LongLineTest, PlacesOnBothSidesAreExact) {
  SelectInView(Start() + Head, Start() + Head);
  EXPECT_EQ(box.SelStart(), 7 + Head);
  SelectInView(Start() + Head + 1, Start() + Head + 1);
  EXPECT_EQ(box.SelStart(), 7 + Mega - Tail);
  SelectInView(Start() + Head + 1 + Tail, Start() + Head + 1 + Tail);
  EXPECT_EQ(box.SelStart(), 7 + Mega);
  box.SelStart(7 + Mega - Tail + 5);
  box.SelLength(3);
  box.Show();
  EXPECT_EQ(View().textCursor().selectionStart(), Start() + Head + 1 + 5);
  EXPECT_EQ(View().textCursor().selectionEnd(), Start() + Head + 1 + 8);
}

TEST_F(LongLineTest, WhatIsSelectedWhereNothingIsShownIsTheMark) {
  box.SelStart(500'000);
  box.SelLength(10);
  box.Show();
  EXPECT_EQ(View().textCursor().selectedText(), QString(QChar(u'\u2026')));
  Settle();
  EXPECT_EQ(box.SelStart(), 500'000);
  EXPECT_EQ(box.SelLength(), 10);
}

TEST_F(LongLineTest, ItIsEditedOnBothSides) {
  SelectInView(Start() + 1, Start() + 1);
  Type("A");
  SelectInView(Start() + Head + 1, Start() + Head + 1); // in front of the mark
  Type("B");
  SelectInView(Start() + Head + 3, Start() + Head + 3); // behind it
  Type("C");
  const String expected = m_line.substr(0, 1) + u"A" + m_line.substr(1, Head - 1) + u"B" +
                          m_line.substr(Head, Mega - Tail - Head) + u"C" + m_line.substr(Mega - Tail);
  EXPECT_TRUE(box.Text() == u"first\r\n" + expected + u"\r\nlast");
  EXPECT_EQ(changes, 3);
}

TEST_F(LongLineTest, ADeletionIsUndone) {
  const String before = box.TextRTF();
  SelectInView(Start() + Head + 1, Start() + Head + 1);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(box.TextLength(), 5 + 2 + Head + Tail + 2 + 4);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(box.TextRTF() == before);
}

TEST_F(LongLineTest, ItIsPartedAndJoinedAgain) {
  const String before = box.TextRTF();
  SelectInView(Start() + 4, Start() + 4);
  Type("\n");
  EXPECT_TRUE(box.Text() == u"first\r\n" + m_line.substr(0, 4) + u"\r\n" + m_line.substr(4) + u"\r\nlast");
  Key(Qt::Key_Backspace);
  EXPECT_TRUE(box.TextRTF() == before);
}

TEST_F(LongLineTest, WhenItsStartIsDeletedMoreOfItIsShown) {
  const String before = box.TextRTF();
  SelectInView(Start(), Start() + 10'000);
  Key(Qt::Key_Delete);
  ExpectShown(box);
  EXPECT_TRUE(box.Text() == u"first\r\n" + m_line.substr(10'000) + u"\r\nlast");
  EXPECT_EQ(View().textCursor().position(), Start());
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(box.TextRTF() == before);
  ExpectShown(box);
}

TEST_F(LongLineTest, AfterADeletionThatLeavesLittleOfItAllIsShown) {
  box.Text(u"first\r\n" + m_line.substr(0, 21'000));
  box.Show();
  const String before = box.TextRTF();
  SelectInView(Start(), Start() + 15'000);
  Key(Qt::Key_Delete);
  EXPECT_TRUE(ShownText(box) == u"first\r\n" + m_line.substr(15'000, 6'000));
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(box.TextRTF() == before);
  ExpectShown(box);
}

TEST_F(LongLineTest, TwoThatAreJoinedAreShownAsOne) {
  box.Text(u"first\r\n" + m_line + u"\r\n" + m_line);
  box.Show();
  SelectInView(Block().next().position(), Block().next().position());
  Key(Qt::Key_Backspace);
  EXPECT_EQ(box.TextLength(), 5 + 2 + 2 * Mega);
  ExpectShown(box);
}

TEST_F(LongLineTest, LinesThatAreLongOnceTheyAreJoinedAreCut) {
  const String half(15'000, u'x');
  box.Text(u"first\r\n" + half + u"\r\n" + half);
  box.Show();
  SelectInView(Block().next().position(), Block().next().position());
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Block().length(), Head + 1 + Tail + 1);
  ExpectShown(box);
}

TEST_F(LongLineTest, WhatCanComeBackIsNotForgotten) {
  for (int i = 0; i < 100; ++i) {
    box.Text(String(30'000, u'x'));
    box.Show();
  }
  SelectInView(0, View().document()->characterCount() - 1);
  EXPECT_EQ(box.SelLength(), 30'000);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(box.TextLength(), 30'000);
}

TEST_F(LongLineTest, OnlyWhatIsShownIsLaidOut) {
  int shaped = 0;
  for (QTextBlock block = View().document()->begin(); block.isValid(); block = block.next()) {
    shaped = std::max(shaped, static_cast<int>(block.layout()->text().size()));
  }
  EXPECT_LE(shaped, Head + 1 + Tail);
}

} // namespace
} // namespace portico::test
