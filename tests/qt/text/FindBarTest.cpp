#include "qt/text/TextBench.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace portico::test {
namespace {

class FindBarTest : public testing::Test, protected TextWindow {
protected:
  FindBarTest() {
    window.show();
    box.Text(u"one Two\r\ntwo three");
    Settle();
    box.SetFocus();
    changes = 0;
  }

  QLineEdit& Open() {
    Key(Qt::Key_F, Qt::ControlModifier);
    auto* bar = View().findChild<QLineEdit*>();
    EXPECT_NE(bar, nullptr);
    EXPECT_EQ(QApplication::focusWidget(), bar);
    return *bar;
  }
  static void Press(QLineEdit& bar, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(&bar, &event);
  }
  static void TypeInto(QLineEdit& bar, const QString& text) {
    for (const QChar unit : text) Press(bar, 0, unit);
  }
};

TEST_F(FindBarTest, SelectsWhatIsTyped) {
  QLineEdit& bar = Open();
  TypeInto(bar, "tw");
  EXPECT_EQ(box.SelStart(), 4);
  EXPECT_EQ(box.SelText(), u"Tw");
  TypeInto(bar, "o");
  EXPECT_EQ(box.SelStart(), 4);
  EXPECT_EQ(box.SelText(), u"Two");
  EXPECT_EQ(changes, 0);
}

TEST_F(FindBarTest, ReturnGoesRoundBothWays) {
  QLineEdit& bar = Open();
  TypeInto(bar, "two");
  std::vector<std::int32_t> starts;
  for (const auto modifier : {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ShiftModifier}) {
    Press(bar, Qt::Key_Return, "\r", modifier);
    starts.push_back(box.SelStart());
  }
  EXPECT_EQ(starts, (std::vector<std::int32_t>{9, 4, 9, 4}));
}

TEST_F(FindBarTest, WhatIsNotThereLeavesTheSelectionAndShowsIt) {
  QLineEdit& bar = Open();
  TypeInto(bar, "two");
  EXPECT_EQ(bar.palette().color(QPalette::Base), Qt::white);
  TypeInto(bar, "x");
  EXPECT_EQ(box.SelText(), u"Two");
  EXPECT_NE(bar.palette().color(QPalette::Base), Qt::white);
}

TEST_F(FindBarTest, TakesTheSelectionWithinALine) {
  SelectInView(8, 11);
  EXPECT_EQ(Open().text(), "two");
  SelectInView(2, 11);
  EXPECT_EQ(Open().text(), "two");
}

TEST_F(FindBarTest, FindsWhatTheProgramHasJustWritten) {
  QLineEdit& bar = Open();
  box.Text(u"fresh");
  TypeInto(bar, "esh");
  EXPECT_EQ(box.SelText(), u"esh");
}

TEST_F(FindBarTest, GoesOnFromTheCaretAlsoWhereTheTextIsStillOnItsWay) {
  QLineEdit& bar = Open();
  constexpr int count = 5000;
  String text;
  for (std::int64_t i = 0; i < count; ++i) text += u"line " + ToText(i) + u"\r\n";
  box.Text(text);
  box.SelStart(box.TextLength());
  while (View().document()->blockCount() < 10) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  ASSERT_LT(View().document()->blockCount(), count);
  bar.setText("line");
  Press(bar, Qt::Key_Return, "\r");
  EXPECT_EQ(box.SelText(), u"line");
  EXPECT_EQ(box.SelStart(), 0) << "behind the last one comes the first";
}

TEST_F(FindBarTest, GoesOnFromTheMenuWithTheFieldClosed) {
  box.OpenFind();
  auto* bar = View().findChild<QLineEdit*>();
  ASSERT_NE(bar, nullptr);
  TypeInto(*bar, "two");
  Press(*bar, Qt::Key_Escape);
  std::vector<std::int32_t> starts;
  for (const bool isNext : {true, true, false, false}) {
    isNext ? box.FindNext() : box.FindPrevious();
    starts.push_back(box.SelStart());
  }
  EXPECT_EQ(starts, (std::vector<std::int32_t>{9, 4, 9, 4}));
  EXPECT_EQ(box.SelText(), u"Two");
  EXPECT_TRUE(bar->isHidden());
  EXPECT_EQ(QApplication::focusWidget(), &View());
}

TEST_F(FindBarTest, GoingOnWithNothingToLookForOpensIt) {
  for (const bool isNext : {true, false}) {
    isNext ? box.FindNext() : box.FindPrevious();
    auto* bar = View().findChild<QLineEdit*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(QApplication::focusWidget(), bar);
    EXPECT_EQ(box.SelTextLength(), 0);
    Press(*bar, Qt::Key_Escape);
  }
}

TEST_F(FindBarTest, EscapeCloses) {
  QLineEdit& bar = Open();
  Press(bar, Qt::Key_Escape);
  EXPECT_TRUE(bar.isHidden());
  EXPECT_EQ(QApplication::focusWidget(), &View());
}

TEST_F(FindBarTest, StaysInItsCorner) {
  QLineEdit& bar = Open();
  box.Move(0, 0, 100 * FormUnitsPerPixel, 200 * FormUnitsPerPixel);
  const QRect area = View().viewport()->geometry();
  EXPECT_EQ(bar.geometry().bottomRight(), area.bottomRight());
  EXPECT_EQ(bar.width(), area.width());
}

TEST_F(FindBarTest, CanBeReadInADarkTheme) {
  const QPalette before = QApplication::palette();
  QPalette dark;
  for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
    dark.setColor(role, QColor(0x20, 0x20, 0x20));
  }
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
    dark.setColor(role, Qt::white);
  }
  QApplication::setPalette(dark);
  QLineEdit& bar = Open();
  const auto ground = [&] { return qGray(bar.palette().color(QPalette::Base).rgb()); };
  EXPECT_GT(ground() - qGray(bar.palette().color(QPalette::PlaceholderText).rgb()), 100) << "what an empty field says";
  TypeInto(bar, "none");
  EXPECT_GT(ground() - qGray(bar.palette().color(QPalette::Text).rgb()), 150);
  QApplication::setPalette(before);
}

} // namespace
} // namespace portico::test
