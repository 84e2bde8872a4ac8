// The marks as the user sees them.

#include "qt/text/TextBench.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace portico::test {
namespace {

class MarkMarginTest : public testing::Test, protected TextWindow {
protected:
  MarkMarginTest() {
    window.show();
    Write(1000);
  }

  void Write(std::int64_t lines) {
    String text;
    for (std::int64_t i = 0; i < lines; ++i) text += u"line " + ToText(i) + u"\r\n";
    box.Text(text);
    Settle();
  }
  void Mark(std::int32_t line) {
    box.GoToLine(line);
    box.MarkLine(box.SelStart());
  }
  QWidget& Part(const char* name) { return *View().findChild<QWidget*>(QString::fromLatin1(name)); }
  QImage Painted(const char* name) {
    Settle();
    return Part(name).grab().toImage();
  }
  static bool IsMark(QRgb color) { return qRed(color) > qBlue(color) + 60; }
  /// The rows of an image in which there is something of a mark.
  static std::vector<int> MarkedRows(const QImage& image) {
    std::vector<int> rows;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (!IsMark(image.pixel(x, y))) continue;
        rows.push_back(y);
        break;
      }
    }
    return rows;
  }
};

TEST_F(MarkMarginTest, TakesRoomWhileALineIsMarked) {
  const QRect whole = View().viewport()->geometry();
  box.MarkLine(0);
  const QRect text = View().viewport()->geometry();
  EXPECT_GT(text.left(), whole.left());
  EXPECT_LT(text.right(), whole.right());
  EXPECT_EQ(Part("markStrip").geometry().right() + 1, text.left());
  EXPECT_EQ(Part("markStrip").geometry().left(), whole.left()) << "inside the frame";
  EXPECT_EQ(Part("markOverview").geometry().left(), text.right() + 1);
  EXPECT_EQ(Part("markOverview").height(), text.height());
  EXPECT_TRUE(Part("markStrip").isVisible());
  box.ClearMarks();
  EXPECT_EQ(View().viewport()->geometry(), whole);
  EXPECT_FALSE(Part("markStrip").isVisible());
  EXPECT_FALSE(Part("markOverview").isVisible());
}

TEST_F(MarkMarginTest, StaysAtItsEdgesWhenTheBoxIsResized) {
  box.MarkLine(0);
  box.Move(0, 0, 200 * FormUnitsPerPixel, 150 * FormUnitsPerPixel);
  Settle();
  const QRect text = View().viewport()->geometry();
  EXPECT_EQ(Part("markOverview").geometry().left(), text.right() + 1);
  EXPECT_EQ(Part("markOverview").height(), text.height());
}

TEST_F(MarkMarginTest, ShowsATriangleAtAMarkedLineInSight) {
  box.GoToLine(0);
  box.MarkLine(box.SelStart());
  Mark(3);
  box.GoToLine(0);
  const QImage strip = Painted("markStrip");
  const int height = static_cast<int>(View().fontMetrics().lineSpacing());
  const auto rows = MarkedRows(strip);
  ASSERT_FALSE(rows.empty());
  EXPECT_LT(rows.front(), height);
  EXPECT_NEAR(rows.back(), 3 * height + height / 2, height);
  EXPECT_TRUE(std::none_of(rows.begin(), rows.end(), [&](int y) { return y > 2 * height - 4 && y < 3 * height; }));
  const int middle = rows[rows.size() / 4];
  EXPECT_TRUE(IsMark(strip.pixel(3, middle))) << "the wide side is at the left";
  EXPECT_EQ(QColor(strip.pixel(0, 2 * height)), QColor(Qt::white));
}

TEST_F(MarkMarginTest, FollowsTheScrolling) {
  Mark(500);
  const std::size_t seen = MarkedRows(Painted("markStrip")).size();
  EXPECT_GT(seen, 3U);
  View().verticalScrollBar()->setValue(0);
  EXPECT_EQ(MarkedRows(Painted("markStrip")).size(), 0U);
}

TEST_F(MarkMarginTest, TheOverviewShowsAllMarksAtTheirShareOfTheText) {
  Mark(0);
  Mark(500);
  Mark(990);
  View().verticalScrollBar()->setValue(0);
  const QImage overview = Painted("markOverview");
  const auto rows = MarkedRows(overview);
  const auto isNear = [&](double share) {
    return std::any_of(rows.begin(), rows.end(), [&](int y) { return std::abs(y - share * overview.height()) < 4; });
  };
  EXPECT_TRUE(isNear(0));
  EXPECT_TRUE(isNear(0.5));
  EXPECT_TRUE(isNear(0.99));
  EXPECT_FALSE(isNear(0.25));
}

TEST_F(MarkMarginTest, InAShortTextAMarkStandsWhereItsShareBeginsAndIsSeenWhole) {
  for (const auto& [lines, line] : {std::pair{10, 0}, {10, 5}, {10, 9}, {1000, 999}}) {
    Write(lines);
    box.ClearMarks();
    Mark(line);
    const QImage overview = Painted("markOverview");
    const auto rows = MarkedRows(overview);
    EXPECT_EQ(rows.size(), 3U) << line << " of " << lines;
    // Behind the lines stands the empty one that the last line end opens.
    const int begin = line * overview.height() / (lines + 1);
    EXPECT_NEAR(rows.at(0), std::min(begin, overview.height() - 3), 1) << line << " of " << lines;
  }
}

TEST_F(MarkMarginTest, AClickBetweenTwoMarksBringsTheNearerOne) {
  Mark(100);
  Mark(900);
  QWidget& overview = Part("markOverview");
  const auto press = [&](double share, Qt::MouseButton button) {
    const QPointF place(2, overview.height() * share);
    QMouseEvent event(QEvent::MouseButtonPress, place, overview.mapToGlobal(place), button, button, {});
    QApplication::sendEvent(&overview, &event);
    return View().verticalScrollBar()->value();
  };
  const int half = View().viewport()->height() / View().fontMetrics().lineSpacing() / 2;
  EXPECT_NEAR(press(0.45, Qt::LeftButton), 100 - half, 1);
  EXPECT_NEAR(press(0.55, Qt::LeftButton), 900 - half, 1);
  EXPECT_NEAR(press(0.0, Qt::LeftButton), 100 - half, 1);
  EXPECT_NEAR(press(0.99, Qt::LeftButton), 900 - half, 1);
  EXPECT_NEAR(press(0.0, Qt::RightButton), 900 - half, 1) << "another button";
}

TEST_F(MarkMarginTest, AClickIntoTheOverviewBringsTheNearestMarkIntoSightAndSelectsNothing) {
  Mark(500);
  box.GoToLine(0);
  View().verticalScrollBar()->setValue(0);
  const std::int32_t start = box.SelStart();
  QWidget& overview = Part("markOverview");
  const QPointF place(2, overview.height() * 0.8);
  QMouseEvent press(QEvent::MouseButtonPress, place, overview.mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(&overview, &press);
  EXPECT_GT(MarkedRows(Painted("markStrip")).size(), 3U);
  EXPECT_EQ(box.SelStart(), start);
}

TEST_F(MarkMarginTest, GoingToALineBringsItsStartIntoSightEvenIfItIsSelectedAlready) {
  box.GoToLine(700);
  View().verticalScrollBar()->setValue(0);
  box.GoToLine(700);
  EXPECT_GT(View().verticalScrollBar()->value(), 600);
  EXPECT_EQ(box.SelText(), u"line 700");
  EXPECT_EQ(View().horizontalScrollBar()->value(), 0);
}

TEST_F(MarkMarginTest, IsTheSameInADarkTheme) {
  box.MarkLine(0);
  const QImage light = Painted("markOverview");
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::Text, Qt::white);
  const QPalette before = QApplication::palette();
  QApplication::setPalette(dark);
  EXPECT_EQ(Painted("markOverview"), light);
  QApplication::setPalette(before);
}

TEST_F(MarkMarginTest, TellsWhoeverCannotSeeItHowManyThereAre) {
  EXPECT_EQ(View().accessibleDescription(), "");
  box.MarkLine(0);
  EXPECT_EQ(View().accessibleDescription(), "1 line is marked");
  box.MarkLine(20);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&View())->text(QAccessible::Description), "2 lines are marked");
  box.ClearMarks();
  EXPECT_EQ(View().accessibleDescription(), "");
}

TEST_F(MarkMarginTest, ALineThatIsStillOnItsWayHasItsMarkWhenItComes) {
  String text;
  for (std::int64_t i = 0; i < 50'000; ++i) text += u"x\r\n";
  box.Text(text);
  box.MarkLine(0);
  box.MarkLine(3);
  box.MarkLine(60'000);
  while (!Part("markStrip").isVisible() || MarkedRows(Part("markStrip").grab().toImage()).empty()) {
    QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  EXPECT_EQ(box.MarkedLines().size(), 3U);
}

} // namespace
} // namespace portico::test
