#include "ui/plot/PlotGestures.h"
#include "platform/ICanvas.h"
#include "platform/KeyCodes.h"

#include <gtest/gtest.h>

namespace portico::test {
namespace {

class PlotGesturesTest : public testing::Test {
protected:
  PlotGesturesTest() {
    for (int i = 0; i <= 100; ++i) Data.Append(i, i);
    View.Follow(All);
    Gestures.Area({50, 0, 100, 100});
  }
  static MouseEvent At(double x, double y, std::int32_t shift = 0) {
    return {.Button = LeftButton, .Shift = shift, .X = x * FormUnitsPerPixel, .Y = y * FormUnitsPerPixel};
  }
  bool Key(std::int32_t code, std::int32_t shift = 0) { return Gestures.Key(code, shift, All); }
  void ExpectX(double from, double to) const {
    EXPECT_NEAR(View.X().From, from, 1e-9);
    EXPECT_NEAR(View.X().To, to, 1e-9);
  }

  numbers::Series Data;
  std::vector<plot::Curve> All{{u"VOLT?", &Data}};
  plot::PlotView View;
  plot::Cursors Cursors;
  PlotGestures Gestures{View, Cursors};
};

TEST_F(PlotGesturesTest, TheWheelZoomsAtThePointer) {
  EXPECT_TRUE(Gestures.Wheel(At(75, 50), 1));
  ExpectX(5, 85);
  EXPECT_TRUE(Gestures.Wheel(At(75, 50), -1));
  ExpectX(0, 100);
}

TEST_F(PlotGesturesTest, TheWheelWithCtrlZoomsUpAndDown) {
  const double height = View.Y().To - View.Y().From;
  EXPECT_TRUE(Gestures.Wheel(At(75, 50, CtrlState), 1));
  ExpectX(0, 100);
  EXPECT_NEAR(View.Y().To - View.Y().From, height / 1.25, 1e-9);
}

TEST_F(PlotGesturesTest, DraggingPansAndSetsNoCursor) {
  Gestures.Press(At(100, 50));
  EXPECT_TRUE(Gestures.Move(At(80, 50)));
  ExpectX(20, 120);
  EXPECT_TRUE(Gestures.Move(At(90, 50)));
  ExpectX(10, 110);
  EXPECT_FALSE(Gestures.Release(At(90, 50)));
  EXPECT_FALSE(Cursors[0].has_value());
  EXPECT_FALSE(Gestures.Move({.X = 0, .Y = 0})) << "no button is held";
}

TEST_F(PlotGesturesTest, AClickSetsACursor) {
  Gestures.Press(At(75, 50));
  EXPECT_FALSE(Gestures.Move(At(76, 51))) << "a hand that is not still";
  EXPECT_TRUE(Gestures.Release(At(76, 51)));
  Gestures.Press(At(100, 50, ShiftState));
  EXPECT_TRUE(Gestures.Release(At(100, 50, ShiftState)));
  EXPECT_EQ(Cursors[0], 25);
  EXPECT_EQ(Cursors[1], 50);
}

TEST_F(PlotGesturesTest, AClickBesideTheCurvesDoesNothing) {
  Gestures.Press(At(10, 50));
  EXPECT_FALSE(Gestures.Move(At(90, 50)));
  EXPECT_FALSE(Gestures.Release(At(10, 50)));
}

TEST_F(PlotGesturesTest, KeysZoomAndPanAndShowAll) {
  EXPECT_TRUE(Key(PlusKey));
  ExpectX(10, 90);
  EXPECT_TRUE(Key(RightKey));
  ExpectX(18, 98);
  EXPECT_TRUE(Key(LeftKey));
  EXPECT_TRUE(Key(MinusKey));
  ExpectX(0, 100);
  EXPECT_TRUE(Key(UpKey));
  EXPECT_FALSE(View.ShowsAll());
  EXPECT_TRUE(Key(HomeKey));
  EXPECT_TRUE(View.ShowsAll());
  EXPECT_FALSE(Key(u'X'));
}

TEST_F(PlotGesturesTest, KeysSetAndMoveCursors) {
  EXPECT_TRUE(Key(u'1'));
  EXPECT_EQ(Cursors[0], 50);
  EXPECT_TRUE(Key(u'2'));
  EXPECT_TRUE(Key(RightKey, CtrlState));
  EXPECT_TRUE(Key(RightKey, CtrlState));
  EXPECT_TRUE(Key(LeftKey, CtrlState));
  EXPECT_EQ(Cursors[0], 50);
  EXPECT_EQ(Cursors[1], 51);
  EXPECT_TRUE(Key(DeleteKey));
  EXPECT_FALSE(Cursors[0].has_value());
  EXPECT_FALSE(Key(RightKey, CtrlState));
}

} // namespace
} // namespace portico::test
