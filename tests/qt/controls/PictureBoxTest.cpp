// Pictures and bars: mouse, colours, pointers; the area that a bar divides.

#include "platform/IPictureBox.h"
#include "qt/ScreenFixture.h"
#include "qt/controls/Icons.h"

#include <QMouseEvent>

namespace portico::test {
namespace {

class PictureBoxTest : public ScreenTest {
protected:
  PictureBoxTest() {
    splitter.Move(0, 0, 3000, 3000);
    bar.Move(0, 300, 3000, 45);
    loop.DoEvents();
  }

  QColor ColorInTheMiddle() const {
    return widget->grab().toImage().pixelColor(widget->width() / 2, widget->height() / 2);
  }
  void Send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons, QPointF at) const {
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, buttons, Qt::ShiftModifier);
    QCoreApplication::sendEvent(widget, &event);
  }

  Ref<IForm> form = Shown(SampleWindow);
  ISplitArea& splitter = FindControl<ISplitArea>(*form, u"splitter");
  IPictureBox& bar = splitter.Splitter();
  QWidget* widget = Find<QWidget>(form, "Splitter");
};

TEST_F(PictureBoxTest, MouseEventsTellButtonShiftAndPlaceInFormUnits) {
  std::vector<std::string> seen;
  const auto note = [&](const char* name) {
    return [&seen, name](const MouseEvent& event) {
      seen.push_back(name + std::to_string(event.Button) + std::to_string(event.Shift) + " " +
                     std::to_string(static_cast<int>(event.X)) + "," + std::to_string(static_cast<int>(event.Y)));
    };
  };
  bar.MouseDown().Connect(note("down"));
  bar.MouseMove().Connect(note("move"));
  bar.MouseUp().Connect(note("up"));
  Send(QEvent::MouseMove, Qt::NoButton, Qt::NoButton, {1, 1});
  Send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, {2, 1});
  Send(QEvent::MouseMove, Qt::NoButton, Qt::LeftButton, {2, 40});
  Send(QEvent::MouseButtonRelease, Qt::RightButton, Qt::NoButton, {2, -2});
  EXPECT_EQ(seen, (std::vector<std::string>{"move01 15,15", "down11 30,15", "move11 30,600", "up21 30,-30"}));
}

TEST_F(PictureBoxTest, ColoursAreNumbersOrTheSystems) {
  bar.BringToFront();
  bar.BackColor(0x00112233);
  EXPECT_EQ(ColorInTheMiddle(), QColor(0x33, 0x22, 0x11));
  bar.BackColor(SystemWindowText);
  EXPECT_EQ(ColorInTheMiddle(), widget->palette().color(QPalette::WindowText));
  bar.BackColor(SystemButtonFace);
  EXPECT_EQ(ColorInTheMiddle(), widget->palette().color(QPalette::Button));
}

TEST_F(PictureBoxTest, PointersAreNumbers) {
  bar.MousePointer(SizeVerticalPointer);
  EXPECT_EQ(widget->cursor().shape(), Qt::SizeVerCursor);
  bar.MousePointer(SizeHorizontalPointer);
  EXPECT_EQ(widget->cursor().shape(), Qt::SizeHorCursor);
  bar.MousePointer(0);
  EXPECT_EQ(widget->cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(Raised([&] { bar.MousePointer(99); }).Number, 380);
  EXPECT_EQ(Raised([&] { bar.MousePointer(-1); }).Number, 380);
}

TEST_F(PictureBoxTest, ComesToTheFront) {
  bar.BringToFront();
  EXPECT_EQ(widget->parentWidget()->children().last(), widget);
}

TEST_F(PictureBoxTest, PlacesAreToThePixel) {
  bar.Move(7, 8, 22, 37.5);
  EXPECT_EQ(bar.Left(), 0);
  EXPECT_EQ(bar.Top(), 15);
  EXPECT_EQ(bar.Width(), 15);
  EXPECT_EQ(bar.Height(), 45);
  EXPECT_EQ(Raised([&] { bar.Move(0, 0, -1, 0); }).Number, 380);
  EXPECT_EQ(Raised([&] { bar.Height(-1); }).Number, 380);
  EXPECT_EQ(bar.Height(), 45);
}

TEST_F(PictureBoxTest, AnAreaTellsEachChangeOfItsSizeAtOnceSeenOrNot) {
  const Ref<IForm> hidden = screen.Load(SampleWindow);
  auto& area = FindControl<ISplitArea>(*hidden, u"splitter");
  int resized = 0;
  area.Resize().Connect([&] { ++resized; });
  area.Width(6000);
  area.Height(4500);
  EXPECT_EQ(resized, 2);
  area.Left(300);
  area.Width(6000);
  EXPECT_EQ(resized, 2);
  EXPECT_EQ(area.ScaleWidth(), 6000);
  EXPECT_EQ(area.ScaleHeight(), 4500);
  hidden->Show();
  loop.DoEvents();
  EXPECT_EQ(resized, 2);
}

TEST_F(PictureBoxTest, AKeyWithoutAPictureHasALetter) {
  EXPECT_FALSE(qt::IconOf(u"Nothing").isNull());
  EXPECT_TRUE(qt::IconSizeOf(u"Nothing").isEmpty());
}

} // namespace
} // namespace portico::test
