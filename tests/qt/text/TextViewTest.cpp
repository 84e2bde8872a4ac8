// The box as a control, and how its text looks.

#include "framework/errors/Quit.h"
#include "platform/IRichTextControl.h"
#include "qt/text/TextBench.h"
#include "qt/text/TextLayout.h"
#include "qt/values/QtText.h"
#include "support/ErrorReports.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextLayout>
#include <QWheelEvent>

namespace portico::test {
namespace {

class TextViewTest : public testing::Test, protected TextWindow {
protected:
  TextViewTest() {
    window.show();
    QApplication::processEvents();
  }

  void Put(StringView text) {
    box.Text(text);
    Settle();
  }
  void Format(std::int32_t start, std::int32_t length, const SelectionFormat& format) {
    box.SelStart(start);
    box.SelLength(length);
    box.SelFormat(format);
    box.SelStart(0);
    Settle();
  }
  void Mouse(QEvent::Type type, Qt::MouseButton button, QPointF place, Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, place, View().viewport()->mapToGlobal(place), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, modifiers);
    QApplication::sendEvent(View().viewport(), &event);
  }
  QPointF PlaceOf(int position) {
    QTextCursor cursor = View().textCursor();
    cursor.setPosition(position);
    return View().cursorRect(cursor).center();
  }
  QTextLine LineOf(int block) {
    const QTextBlock found = View().document()->findBlockByNumber(block);
    View().Layout().blockBoundingRect(found);
    return found.layout()->lineAt(0);
  }
  /// How many pixels are not white.
  static int Inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) != Qt::white ? 1 : 0;
    }
    return count;
  }
  /// Without the caret.
  QImage Picture() {
    View().clearFocus();
    QImage image(View().viewport()->size(), QImage::Format_RGB32);
    View().viewport()->render(&image);
    return image;
  }
};

TEST_F(TextViewTest, IsAControlOfItsForm) {
  const ControlDesign design{
      .Kind = ControlKind::RichTextBox, .Name = u"txtNew", .ToolTipText = u"tip", .Tag = u"tag", .Visible = false};
  qt::RichTextBox other(design, window, u"Sans", 10);
  EXPECT_EQ(other.Name(), u"txtNew");
  EXPECT_EQ(other.Kind(), ControlKind::RichTextBox);
  EXPECT_EQ(other.Tag(), u"tag");
  EXPECT_EQ(other.ToolTipText(), u"tip");
  EXPECT_EQ(other.Caption(), u"");
  EXPECT_EQ(Raised([&] { other.Caption(u"x"); }).Number, 438);
  EXPECT_FALSE(other.Visible());
  EXPECT_TRUE(other.Enabled());
  EXPECT_TRUE(other.TabStop());
  EXPECT_EQ(window.findChild<QWidget*>("txtNew"), other.Widget());
  EXPECT_EQ(other.Widget()->toolTip(), "tip");
  EXPECT_TRUE(other.Widget()->isHidden());
  other.Visible(true);
  other.Enabled(false);
  other.ToolTipText(u"other");
  EXPECT_TRUE(other.Widget()->isVisible());
  EXPECT_FALSE(other.Widget()->isEnabled());
  EXPECT_EQ(other.Widget()->toolTip(), "other");
}

TEST_F(TextViewTest, IsPlacedInFifteenthsOfAPixel) {
  box.Move(150, 300, 1500, 755);
  EXPECT_EQ(View().geometry(), QRect(10, 20, 100, 50));
  EXPECT_EQ(box.Left(), 150);
  EXPECT_EQ(box.Top(), 300);
  EXPECT_EQ(box.Width(), 1500);
  EXPECT_EQ(box.Height(), 750);
  box.Left(15);
  box.Top(30);
  box.Width(45);
  box.Height(60);
  EXPECT_EQ(View().geometry(), QRect(1, 2, 3, 4));
  EXPECT_EQ(Raised([&] { box.Width(-1); }).Number, 380);
  EXPECT_EQ(Raised([&] { box.Height(-1); }).Number, 380);
}

TEST_F(TextViewTest, TheTabKeyPassesOverWhatIsNoTabStop) {
  QWidget before(&window);
  before.setFocusPolicy(Qt::StrongFocus);
  QWidget behind(&window);
  behind.setFocusPolicy(Qt::StrongFocus);
  for (QWidget* widget : {&before, &behind}) widget->show();
  QWidget::setTabOrder(&before, &View());
  QWidget::setTabOrder(&View(), &behind);
  const auto tab = [&] {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t");
    QApplication::sendEvent(QApplication::focusWidget(), &press);
    return QApplication::focusWidget();
  };
  before.setFocus();
  EXPECT_EQ(tab(), &View());
  EXPECT_EQ(tab(), &behind);
  EXPECT_EQ(box.Text(), u"");
  box.TabStop(false);
  EXPECT_FALSE(box.TabStop());
  before.setFocus();
  EXPECT_EQ(tab(), &behind);
  box.SetFocus();
  EXPECT_EQ(QApplication::focusWidget(), &View());
  box.TabStop(true);
  before.setFocus();
  EXPECT_EQ(tab(), &View());
}

TEST_F(TextViewTest, FocusIsToldMenusExcepted) {
  int got = 0;
  int lost = 0;
  QWidget other(&window);
  other.setFocusPolicy(Qt::StrongFocus);
  other.show();
  other.setFocus();
  box.GotFocus().Connect([&] { ++got; });
  box.LostFocus().Connect([&] {
    ++lost;
    throw Quit();
  });
  box.SetFocus();
  EXPECT_EQ(got, 1);
  box.SetFocus();
  EXPECT_EQ(got, 1);
  const auto send = [&](QEvent::Type type, Qt::FocusReason reason) {
    QFocusEvent event(type, reason);
    QApplication::sendEvent(&View(), &event);
  };
  send(QEvent::FocusOut, Qt::PopupFocusReason);
  send(QEvent::FocusIn, Qt::PopupFocusReason);
  send(QEvent::FocusOut, Qt::MenuBarFocusReason);
  send(QEvent::FocusIn, Qt::MenuBarFocusReason);
  EXPECT_EQ(got, 1);
  EXPECT_EQ(lost, 0);
  send(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(lost, 1);
  send(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
  EXPECT_EQ(got, 2);
}

TEST_F(TextViewTest, MouseButtonsAreToldAtOnce) {
  std::vector<MouseEvent> down;
  std::vector<MouseEvent> up;
  box.MouseDown().Connect([&](const MouseEvent& event) { down.push_back(event); });
  box.MouseUp().Connect([&](const MouseEvent& event) { up.push_back(event); });
  Mouse(QEvent::MouseButtonPress, Qt::RightButton, {20, 30}, Qt::ShiftModifier | Qt::ControlModifier);
  ASSERT_EQ(down.size(), 1);
  EXPECT_EQ(down[0].Button, RightButton);
  EXPECT_EQ(down[0].Shift, 3);
  const QPoint place = View().viewport()->mapTo(&View(), QPoint(20, 30));
  EXPECT_EQ(down[0].X, place.x() * 15);
  EXPECT_EQ(down[0].Y, place.y() * 15);
  EXPECT_TRUE(up.empty());
  Mouse(QEvent::MouseButtonRelease, Qt::LeftButton, {20, 30}, Qt::AltModifier);
  ASSERT_EQ(up.size(), 1);
  EXPECT_EQ(up[0].Button, LeftButton);
  EXPECT_EQ(up[0].Shift, 4);
}

TEST_F(TextViewTest, TheRightButtonLeavesTheSelection) {
  Put(u"abcdef");
  SelectInView(1, 4);
  String selected;
  box.MouseDown().Connect([&](const MouseEvent& /*event*/) { selected = box.SelText(); });
  for (const int position : {2, 6}) {
    Mouse(QEvent::MouseButtonPress, Qt::RightButton, PlaceOf(position));
    EXPECT_EQ(selected, u"bcd");
    Mouse(QEvent::MouseButtonRelease, Qt::RightButton, PlaceOf(position));
    EXPECT_EQ(box.SelText(), u"bcd");
  }
  EXPECT_EQ(View().contextMenuPolicy(), Qt::NoContextMenu);
}

TEST_F(TextViewTest, TheLeftButtonPutsTheCaret) {
  Put(u"ab\r\ncd");
  std::int32_t start = -1;
  box.MouseDown().Connect([&](const MouseEvent& /*event*/) { start = box.SelStart(); });
  Mouse(QEvent::MouseButtonPress, Qt::LeftButton, PlaceOf(4));
  Mouse(QEvent::MouseButtonRelease, Qt::LeftButton, PlaceOf(4));
  EXPECT_EQ(start, 5);
  EXPECT_EQ(box.SelStart(), 5);
}

TEST_F(TextViewTest, TheGroundIsWhiteInEveryTheme) {
  const QPalette before = QApplication::palette();
  QPalette dark(Qt::white, Qt::black);
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::Highlight, Qt::white);
  QApplication::setPalette(dark);
  QApplication::processEvents();
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    EXPECT_EQ(View().palette().color(group, QPalette::Base), Qt::white);
    EXPECT_EQ(View().palette().color(group, QPalette::Text), Qt::black);
    EXPECT_NE(View().palette().color(group, QPalette::Highlight), Qt::white);
    EXPECT_NE(View().palette().color(group, QPalette::Highlight),
              View().palette().color(group, QPalette::HighlightedText));
  }
  EXPECT_EQ(Inked(Picture()), 0);
  QApplication::setPalette(before);
}

TEST_F(TextViewTest, WhiteTextIsNotSeenUntilItIsSelected) {
  Put(u"abc");
  EXPECT_GT(Inked(Picture()), 20);
  Format(0, 3, {.SelColor = 0xFFFFFF});
  EXPECT_EQ(Inked(Picture()), 0);
  SelectInView(0, 3);
  EXPECT_GT(Inked(Picture()), 20);
}

TEST_F(TextViewTest, EachLookIsTheToolkits) {
  Put(u"abc");
  Format(1, 1,
         {.SelBold = true,
          .SelCharOffset = 60,
          .SelColor = 0x123456,
          .SelFontName = u"Mono",
          .SelFontSize = 12,
          .SelItalic = true,
          .SelStrikeThru = true,
          .SelUnderline = true});
  QTextCursor cursor = View().textCursor();
  cursor.setPosition(2);
  const QTextCharFormat format = cursor.charFormat();
  EXPECT_EQ(format.fontWeight(), QFont::Bold);
  EXPECT_TRUE(format.fontItalic());
  EXPECT_TRUE(format.fontUnderline());
  EXPECT_TRUE(format.fontStrikeOut());
  EXPECT_EQ(format.foreground().color(), QColor(0x56, 0x34, 0x12));
  EXPECT_EQ(format.fontFamilies().toStringList(), QStringList{"Mono"});
  EXPECT_EQ(format.fontPointSize(), 12);
  EXPECT_EQ(format.baselineOffset(), 25); // three points of twelve
  EXPECT_EQ(View().document()->defaultFont().family(), "Sans");
  EXPECT_EQ(View().document()->defaultFont().pointSizeF(), 10);
}

TEST_F(TextViewTest, IndentsAreExact) {
  Put(u"abc\r\nabc\r\nabc");
  const double plain = LineOf(0).x();
  Format(5, 1, {.SelIndent = 150});
  Format(10, 1, {.SelHangingIndent = 300, .SelIndent = 450});
  EXPECT_EQ(LineOf(0).x(), plain);
  EXPECT_EQ(LineOf(1).x(), plain + 10);
  EXPECT_EQ(LineOf(2).x(), plain + 30); // a line that does not wrap has no further lines
  EXPECT_EQ(PlaceOf(4).x(), PlaceOf(0).x() + 10);
}

TEST_F(TextViewTest, TheScrollRangeReachesTheEndOfAnIndentedLine) {
  Put(String(200, u'x'));
  View().verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
  const int plain = View().horizontalScrollBar()->maximum();
  EXPECT_GT(plain, 0);
  Format(0, 1, {.SelIndent = 1500});
  EXPECT_EQ(View().horizontalScrollBar()->maximum(), plain + 100);
  Put(u"x");
  EXPECT_EQ(View().horizontalScrollBar()->maximum(), 0);
}

TEST_F(TextViewTest, TheEndOfTheTextComesIntoViewWithTheCaret) {
  String text;
  for (int i = 0; i < 500; ++i) text += u"line\r\n";
  Put(text);
  EXPECT_EQ(View().verticalScrollBar()->value(), 0);
  box.SelStart(box.TextLength() + 1);
  Settle();
  EXPECT_EQ(View().verticalScrollBar()->value(), View().verticalScrollBar()->maximum());
  EXPECT_GT(View().verticalScrollBar()->value(), 400);
}

TEST_F(TextViewTest, TextThatComesInBehindTheSelectionLeavesTheUserWhereHeHasScrolledTo) {
  String text;
  for (int i = 0; i < 500; ++i) text += u"line\r\n";
  Put(text);
  box.SelStart(3);
  box.SelLength(4);
  Settle();
  View().verticalScrollBar()->setValue(100);
  box.SelStart(box.TextLength() + 1);
  box.SelText(u"more\r\n");
  box.SelStart(3);
  box.SelLength(4);
  Settle();
  EXPECT_EQ(View().verticalScrollBar()->value(), 100);
  box.SelStart(3);
  Settle();
  EXPECT_EQ(View().verticalScrollBar()->value(), 0);
}

TEST_F(TextViewTest, ZoomChangesWhatIsSeenAndNothingElse) {
  Put(u"abc\r\nabc");
  Format(0, 3, {.SelIndent = 150});
  Format(5, 3, {.SelFontSize = 20});
  const String before = box.TextRTF();
  const double margin = View().document()->documentMargin();
  const double height = LineOf(0).height();
  const double other = LineOf(1).height();
  for (int i = 0; i < 8; ++i) Key(Qt::Key_Plus, Qt::ControlModifier, "+");
  Settle();
  EXPECT_GT(LineOf(0).height(), 1.8 * height);
  EXPECT_GT(LineOf(1).height(), 1.8 * other);
  EXPECT_NEAR(LineOf(0).x(), margin + 10 * View().Zoom(), 0.1);
  EXPECT_EQ(box.TextRTF(), before);
  Key(Qt::Key_Minus, Qt::ControlModifier, "-");
  EXPECT_LT(View().Zoom(), 2);
  Key(Qt::Key_0, Qt::ControlModifier, "0");
  Settle();
  EXPECT_EQ(LineOf(0).height(), height);
  EXPECT_EQ(LineOf(1).height(), other);
  EXPECT_EQ(changes, 1);
}

TEST_F(TextViewTest, ZoomsByTenthsForTheMenu) {
  box.ChangeZoom(ZoomChange::In);
  EXPECT_NEAR(View().Zoom(), 1.1, 1e-9);
  box.ChangeZoom(ZoomChange::ActualSize);
  EXPECT_EQ(View().Zoom(), 1);
  box.ChangeZoom(ZoomChange::Out);
  EXPECT_NEAR(View().Zoom(), 1 / 1.1, 1e-9);
  for (int i = 0; i < 50; ++i) box.ChangeZoom(ZoomChange::Out);
  EXPECT_EQ(View().Zoom(), 0.3);
  for (int i = 0; i < 50; ++i) box.ChangeZoom(ZoomChange::In);
  EXPECT_EQ(View().Zoom(), 8);
}

TEST_F(TextViewTest, ControlAndTheWheelZoom) {
  const auto turn = [&](int delta, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event({10, 10}, View().mapToGlobal(QPointF(10, 10)), {}, {0, delta}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(View().viewport(), &event);
  };
  turn(120, Qt::ControlModifier);
  EXPECT_NEAR(View().Zoom(), 1.1, 1e-9);
  turn(-240, Qt::ControlModifier);
  EXPECT_NEAR(View().Zoom(), 1 / 1.1, 1e-9);
  turn(120, {});
  EXPECT_NEAR(View().Zoom(), 1 / 1.1, 1e-9);
  for (int i = 0; i < 40; ++i) turn(120, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 8);
}

} // namespace
} // namespace portico::test
