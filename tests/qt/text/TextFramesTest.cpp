// A text that is longer than a frame can take: what is in sight is shown first, and the rest follows.

#include "qt/text/TextBench.h"
#include "qt/values/QtText.h"

#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>

#include <random>

namespace portico::test {
namespace {

class TextFramesTest : public testing::Test, protected TextWindow {
protected:
  static constexpr int Count = 5000;

  TextFramesTest() {
    window.show();
    Settle();
    QObject::connect(&Document(), &QTextDocument::contentsChange, &window, [this](int, int, int added) {
      ++m_frames;
      m_written += added;
    });
  }

  QTextDocument& Document() const { return *View().document(); }
  static String Lines() {
    String text;
    for (std::int64_t i = 0; i < Count; ++i) text += u"line " + ToText(i) + u"\r\n";
    return text;
  }
  /// Until the document has been brought nearer to the text.
  void Frame() {
    const int before = m_frames;
    while (m_frames == before) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  /// With the caret behind it.
  void PutLines() {
    box.Text(Lines());
    box.SelStart(box.TextLength());
    Frame();
    ASSERT_LT(Document().blockCount(), Count);
  }
  QString TopLine() const { return View().cursorForPosition({20, 10}).block().text(); }
  int Written() const { return m_written; }

private:
  int m_frames = 0;
  int m_written = 0;
};

TEST_F(TextFramesTest, WhatIsInSightIsShownFirst) {
  PutLines();
  QTextBlock block = Document().lastBlock();
  EXPECT_EQ(View().textCursor().position(), block.position());
  for (std::int64_t i = Count - 1; i > Count - 30; --i) {
    block = block.previous();
    ASSERT_EQ(qt::FromQt(block.text()), u"line " + ToText(i));
  }
}

TEST_F(TextFramesTest, TheRestFollowsAndMovesNothing) {
  PutLines();
  const QString top = TopLine();
  EXPECT_FALSE(top.isEmpty());
  while (Document().blockCount() <= Count) {
    Frame();
    ASSERT_EQ(TopLine(), top);
  }
  EXPECT_TRUE(ShownText(box) == TextToShow(box));
}

TEST_F(TextFramesTest, BeforeTheUserDoesAnythingAllIsShown) {
  PutLines();
  Key(Qt::Key_Left);
  EXPECT_TRUE(ShownText(box) == TextToShow(box));
  EXPECT_EQ(box.SelStart(), box.TextLength() - 2);
}

TEST_F(TextFramesTest, BeforeTheUserScrollsAllIsShown) {
  PutLines();
  View().verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
  EXPECT_TRUE(ShownText(box) == TextToShow(box));
}

TEST_F(TextFramesTest, TheFocusComesAndGoesWithoutIt) {
  PutLines();
  QWidget other(&window);
  other.show();
  other.setFocus();
  box.SetFocus();
  EXPECT_TRUE(View().hasFocus());
  other.setFocus();
  EXPECT_LT(Document().blockCount(), Count);
}

TEST_F(TextFramesTest, LinesThatGoBeforeTheirTurnAreNeverWritten) {
  box.Text(Lines());
  Frame();
  const std::int32_t most = box.TextLength();
  const std::int32_t kept = box.Find(u"line 4990", 0);
  box.SelStart(0);
  box.SelLength(kept);
  box.SelRTF(u"");
  box.Show();
  EXPECT_EQ(Document().blockCount(), 11);
  EXPECT_TRUE(ShownText(box) == TextToShow(box));
  EXPECT_LT(Written(), most / 2);
}

TEST_F(TextFramesTest, TheLineOfTheCaretIsShownWhateverIsEdited) {
  std::mt19937 random(5); // NOLINT: the same each time
  const auto below = [&](std::int32_t limit) { return static_cast<std::int32_t>(random() % unsigned(limit)); };
  const String lines = Lines();
  box.Text(lines);
  for (int i = 0; i < 30; ++i) {
    for (int edits = below(4); edits >= 0; --edits) {
      box.SelStart(below(box.TextLength() + 1));
      box.SelLength(below(3) == 0 ? below(30'000) : 0);
      box.SelText(below(3) == 0 ? String(1, u'x') : lines.substr(0, static_cast<std::size_t>(below(9000))));
    }
    Frame();
    const String text = box.Text();
    const auto start = static_cast<std::size_t>(box.SelStart());
    const String ahead = qt::FromQt(View().textCursor().block().text().left(View().textCursor().positionInBlock()));
    ASSERT_TRUE(StringView(text).substr(0, start).ends_with(start > ahead.size() ? u"\n" + ahead : ahead)) << i;
  }
  box.Show();
  EXPECT_TRUE(ShownText(box) == TextToShow(box));
}

} // namespace
} // namespace portico::test
