#include "ui/plot/PlotGestures.h"
#include "platform/ICanvas.h"
#include "platform/KeyCodes.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

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

TEST_F(PlotGesturesTest, WhatIsUnderTheWheelStaysUpAndDown) {
  const double top = View.Y().To;
  EXPECT_TRUE(Gestures.Wheel(At(75, 0, CtrlState), 2));
  EXPECT_NEAR(View.Y().To, top, 1e-9);
  EXPECT_TRUE(Gestures.Wheel(At(75, 0, CtrlState), -2));
  const double bottom = View.Y().From;
  EXPECT_TRUE(Gestures.Wheel(At(75, 100, CtrlState), 1));
  EXPECT_NEAR(View.Y().From, bottom, 1e-9);
}

TEST_F(PlotGesturesTest, TheWheelBesideTheCurvesZoomsAtTheirEdge) {
  EXPECT_TRUE(Gestures.Wheel(At(10, 50), 1));
  ExpectX(0, 80);
  EXPECT_TRUE(Gestures.Wheel(At(500, 50), -1));
  ExpectX(-20, 80);
}

TEST_F(PlotGesturesTest, WithoutRoomForCurvesTheMiddleStays) {
  Gestures.Area({50, 0, 0, 0});
  EXPECT_TRUE(Gestures.Wheel(At(50, 0), 1));
  ExpectX(10, 90);
  const numbers::Range before = View.Y();
  EXPECT_TRUE(Gestures.Wheel(At(50, 0, CtrlState), 1));
  EXPECT_NEAR(View.Y().From, before.From + (before.To - before.From) / 10, 1e-9);
  Gestures.Press(At(50, 0));
  EXPECT_FALSE(Gestures.Move(At(90, 0)));
  ExpectX(10, 90);
}

TEST_F(PlotGesturesTest, DraggingMovesUpAndDownOnceTheUserHasZoomedThere) {
  const numbers::Range whole = View.Y();
  Gestures.Press(At(100, 50));
  EXPECT_TRUE(Gestures.Move(At(100, 70)));
  EXPECT_TRUE(View.FollowsY()) << "a small slip";
  Gestures.Release(At(100, 70));
  Key(PlusKey, CtrlState);
  EXPECT_LT(View.Y().To - View.Y().From, whole.To - whole.From);
  const numbers::Range before = View.Y();
  Gestures.Press(At(100, 50));
  EXPECT_TRUE(Gestures.Move(At(100, 60)));
  EXPECT_NEAR(View.Y().From, before.From + (before.To - before.From) / 10, 1e-9) << "what is seen comes down";
}

TEST_F(PlotGesturesTest, OtherButtonsNeitherDragNorClick) {
  MouseEvent right = At(75, 50);
  right.Button = RightButton;
  Gestures.Press(right);
  EXPECT_FALSE(Gestures.Move(At(95, 50)));
  EXPECT_FALSE(Gestures.Release(right));
  Gestures.Press(At(75, 50));
  EXPECT_FALSE(Gestures.Release(right));
  EXPECT_EQ(Cursors, plot::Cursors());
  ExpectX(0, 100);
}

TEST_F(PlotGesturesTest, ADragEndsWithItsButton) {
  Gestures.Press(At(100, 50));
  EXPECT_FALSE(Gestures.Move({.X = 80 * FormUnitsPerPixel, .Y = 50 * FormUnitsPerPixel})) << "let go elsewhere";
  Gestures.Press(At(100, 50));
  Gestures.Release(At(100, 50));
  EXPECT_FALSE(Gestures.Move(At(80, 50))) << "pressed elsewhere";
  EXPECT_FALSE(Gestures.Release(At(100, 50)));
  ExpectX(0, 100);
}

TEST_F(PlotGesturesTest, ADragThatComesBackIsNoClick) {
  Gestures.Press(At(75, 50));
  EXPECT_TRUE(Gestures.Move(At(75, 54)));
  EXPECT_TRUE(Gestures.Move(At(75, 50)));
  EXPECT_FALSE(Gestures.Release(At(75, 50)));
  Gestures.Press(At(75, 50));
  EXPECT_FALSE(Gestures.Move(At(78, 47))) << "as far as a click may move";
  EXPECT_TRUE(Gestures.Release(At(78, 47)));
  EXPECT_EQ(Cursors[0], 25) << "where it was pressed";
}

TEST_F(PlotGesturesTest, AClickAtTheEdgeIsInside) {
  for (const auto& [x, y, place] : {std::tuple{50.0, 0.0, 0.0}, {150.0, 100.0, 100.0}}) {
    Gestures.Press(At(x, y));
    EXPECT_TRUE(Gestures.Release(At(x, y)));
    EXPECT_EQ(Cursors[0], place);
  }
  for (const auto& [x, y] : {std::pair{49.0, 50.0}, {151.0, 50.0}, {100.0, -1.0}, {100.0, 101.0}}) {
    Gestures.Press(At(x, y));
    EXPECT_FALSE(Gestures.Release(At(x, y))) << x << ", " << y;
  }
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

TEST_F(PlotGesturesTest, PagesPanByNearlyAllAndArrowsUpwards) {
  EXPECT_TRUE(Key(PlusKey));
  EXPECT_TRUE(Key(PageUpKey));
  ExpectX(-62, 18);
  EXPECT_TRUE(Key(PageDownKey));
  ExpectX(10, 90);
  EXPECT_TRUE(Key(u'0'));
  ExpectX(0, 100);
  const numbers::Range before = View.Y();
  EXPECT_TRUE(Key(PlusKey, CtrlState));
  ExpectX(0, 100);
  const numbers::Range zoomed = View.Y();
  EXPECT_NEAR(zoomed.To - zoomed.From, (before.To - before.From) / 1.25, 1e-9);
  EXPECT_TRUE(Key(UpKey));
  EXPECT_NEAR(View.Y().From, zoomed.From + 0.1 * (zoomed.To - zoomed.From), 1e-9);
  EXPECT_TRUE(Key(DownKey));
  EXPECT_NEAR(View.Y().From, zoomed.From, 1e-9);
  EXPECT_TRUE(Key(MinusKey, CtrlState));
  EXPECT_NEAR(View.Y().To, before.To, 1e-9);
}

TEST_F(PlotGesturesTest, ACursorStopsAtTheFirstAndTheLastValue) {
  Cursors[0] = 99.5;
  Key(RightKey, CtrlState);
  EXPECT_EQ(Cursors[0], 100);
  EXPECT_TRUE(Key(RightKey, CtrlState));
  EXPECT_EQ(Cursors[0], 100);
  Cursors[0] = 0.5;
  Key(LeftKey, CtrlState);
  EXPECT_EQ(Cursors[0], 0);
  EXPECT_TRUE(Key(LeftKey, CtrlState));
  EXPECT_EQ(Cursors[0], 0);
  Cursors[0] = 500;
  Key(RightKey, CtrlState);
  EXPECT_EQ(Cursors[0], 500) << "nothing is behind";
  Key(LeftKey, CtrlState);
  EXPECT_EQ(Cursors[0], 100);
  const numbers::Series none;
  EXPECT_FALSE(Gestures.Key(RightKey, CtrlState, {}));
  EXPECT_FALSE(Gestures.Key(RightKey, CtrlState, {{u"VOLT?", &none}}));
}

TEST_F(PlotGesturesTest, TheCursorThatWasSetLastMoves) {
  Key(u'2');
  Gestures.Press(At(75, 50));
  Gestures.Release(At(75, 50));
  Key(RightKey, CtrlState);
  EXPECT_EQ(Cursors[0], 26);
  EXPECT_EQ(Cursors[1], 50);
}

TEST_F(PlotGesturesTest, ValuesAtOnePlaceAreOneStep) {
  numbers::Series data;
  for (const double place : {1.0, 2.0, 2.0, 2.0, 3.0}) data.Append(place, 0);
  const std::vector<plot::Curve> curves{{u"VOLT?", &data}};
  Cursors[0] = 1;
  for (const double place : {2.0, 3.0}) {
    EXPECT_TRUE(Gestures.Key(RightKey, CtrlState, curves));
    EXPECT_EQ(Cursors[0], place);
  }
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
