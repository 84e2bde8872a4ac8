// The notes beside the text as the user sees them.

#include "qt/text/TextBench.h"

#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QImage>
#include <QScrollBar>
#include <QToolTip>

namespace portico::test {
namespace {

/// Two columns: the line's number in every tenth line, where a rule stands too, and the same text everywhere.
class Numbers final : public ILineNotes {
public:
  StringView ClassName() const override { return u"Numbers"; }
  std::vector<String> Widest() const override {
    return IsOn ? std::vector<String>{u"0000", u"second"} : std::vector<String>{};
  }
  LineNote NoteOf(std::int32_t line) const override {
    const bool begins = line % 10 == 0;
    const String number = ToText(std::int64_t{line});
    return {.Columns = {begins ? number : String(), u"second"}, .Begins = begins, .Told = u"Told of " + number};
  }
  bool IsOn = true;
};

class MarginNotesTest : public testing::Test, protected TextWindow {
protected:
  MarginNotesTest() {
    window.show();
    String text;
    for (std::int64_t i = 0; i < 1000; ++i) text += u"line " + ToText(i) + u"\r\n";
    box.Text(text);
    Settle();
  }
  QWidget& Strip() { return *View().findChild<QWidget*>(QStringLiteral("markStrip")); }
  QImage Painted() {
    Settle();
    return Strip().grab().toImage();
  }
  int LineHeight() { return View().fontMetrics().lineSpacing(); }
  static bool IsDark(QRgb color) { return qGray(color) < 0xA0; }
  static bool IsRule(QRgb color) { return qBlue(color) > qRed(color) + 60; }
  static bool IsMark(QRgb color) { return qRed(color) > qBlue(color) + 60; }
  template <class Is>
  static int Count(const QImage& image, const QRect& part, Is is) {
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
      for (int x = part.left(); x <= part.right(); ++x) count += is(image.pixel(x, y)) ? 1 : 0;
    }
    return count;
  }

  Ref<Numbers> Source = New<Numbers>();
};

TEST_F(MarginNotesTest, TakeAsMuchRoomAsTheirColumnsNeedAndGiveItBack) {
  const QRect whole = View().viewport()->geometry();
  box.ShowNotes(Source);
  const QRect text = View().viewport()->geometry();
  const QFontMetrics metrics = View().fontMetrics();
  EXPECT_GT(text.left() - whole.left(), metrics.horizontalAdvance(QStringLiteral("0000second")));
  EXPECT_EQ(text.right(), whole.right()) << "the overview is for marks";
  EXPECT_EQ(Strip().geometry().right() + 1, text.left());
  EXPECT_EQ(Strip().geometry().left(), whole.left());
  EXPECT_TRUE(Strip().isVisible());
  Source->IsOn = false;
  box.ShowNotes(Source);
  EXPECT_EQ(View().viewport()->geometry(), whole);
  EXPECT_FALSE(Strip().isVisible());
  Source->IsOn = true;
  box.ShowNotes(Source);
  box.ShowNotes({});
  EXPECT_EQ(View().viewport()->geometry(), whole);
}

TEST_F(MarginNotesTest, StandBesideTheirLines) {
  box.ShowNotes(Source);
  View().verticalScrollBar()->setValue(15);
  const QImage strip = Painted();
  const int height = LineHeight();
  const int first = View().fontMetrics().horizontalAdvance(QStringLiteral("0000"));
  const QRect row(0, 0, strip.width(), height);
  EXPECT_EQ(Count(strip, row.adjusted(0, 0, first - strip.width(), 0), IsDark), 0) << "line 15 has no number";
  EXPECT_GT(Count(strip, row, IsDark), 10);
  const QRect tenth = row.translated(0, 5 * height);
  EXPECT_GT(Count(strip, tenth.adjusted(0, 1, first - strip.width(), 0), IsDark), 5) << "line 20 has one";
  EXPECT_GT(Count(strip, tenth.adjusted(0, -1, 0, 0), IsRule), strip.width() / 2) << "and a rule";
  EXPECT_EQ(Count(strip, row.translated(0, 2 * height), IsRule), 0);
}

TEST_F(MarginNotesTest, LeaveTheTrianglesTheirPlaceBesideTheText) {
  box.ShowNotes(Source);
  const int alone = Strip().width();
  box.GoToLine(3);
  box.MarkLine(box.SelStart());
  box.GoToLine(0);
  const QImage strip = Painted();
  EXPECT_GT(strip.width(), alone);
  const QRect row(0, 3 * LineHeight(), strip.width(), LineHeight());
  EXPECT_EQ(Count(strip, row.adjusted(0, 0, alone - strip.width(), 0), IsMark), 0);
  EXPECT_GT(Count(strip, row.adjusted(alone, 0, 0, 0), IsMark), 10);
  box.ClearMarks();
  EXPECT_EQ(Strip().width(), alone);
}

TEST_F(MarginNotesTest, GrowWithTheText) {
  box.ShowNotes(Source);
  const int before = Strip().width();
  box.ChangeZoom(ZoomChange::In);
  box.ChangeZoom(ZoomChange::In);
  box.ChangeZoom(ZoomChange::In);
  EXPECT_GT(Strip().width(), before + before / 5);
  box.ChangeZoom(ZoomChange::ActualSize);
  EXPECT_EQ(Strip().width(), before);
}

TEST_F(MarginNotesTest, AreToldOfTheCaretsLine) {
  EXPECT_EQ(View().accessibleDescription(), "");
  box.ShowNotes(Source);
  box.GoToLine(7);
  Settle();
  EXPECT_EQ(View().accessibleDescription(), "Told of 7");
  box.MarkLine(0);
  EXPECT_EQ(View().accessibleDescription(), "1 line is marked; Told of 7");
  Key(Qt::Key_Down);
  EXPECT_EQ(View().accessibleDescription(), "1 line is marked; Told of 8");
  box.ShowNotes({});
  EXPECT_EQ(View().accessibleDescription(), "1 line is marked");
}

TEST_F(MarginNotesTest, AreToldUnderTheMouse) {
  box.ShowNotes(Source);
  box.GoToLine(4);
  Settle();
  const QPoint place(3, View().cursorRect().center().y());
  QHelpEvent event(QEvent::ToolTip, place, Strip().mapToGlobal(place));
  QApplication::sendEvent(&Strip(), &event);
  EXPECT_EQ(QToolTip::text(), "Told of 4");
  QToolTip::hideText();
}

TEST_F(MarginNotesTest, AreTheSameInADarkTheme) {
  box.ShowNotes(Source);
  const QImage light = Painted();
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Text, Qt::white);
  const QPalette before = QApplication::palette();
  QApplication::setPalette(dark);
  EXPECT_EQ(Painted(), light);
  QApplication::setPalette(before);
}

} // namespace
} // namespace portico::test
