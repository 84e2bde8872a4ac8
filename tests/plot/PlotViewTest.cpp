#include "plot/PlotView.h"

#include "plot/Curves.h"

#include <gtest/gtest.h>

namespace portico::plot {
namespace {

using numbers::Range;

class PlotViewTest : public testing::Test {
protected:
  PlotViewTest() {
    for (int i = 0; i <= 100; ++i) Data.Append(i, i * 2.0);
    View.Follow(All);
  }
  void ExpectX(double from, double to) const {
    EXPECT_NEAR(View.X().From, from, 1e-9);
    EXPECT_NEAR(View.X().To, to, 1e-9);
  }
  void ExpectY(double from, double to) const {
    EXPECT_NEAR(View.Y().From, from, 1e-9);
    EXPECT_NEAR(View.Y().To, to, 1e-9);
  }

  numbers::Series Data;
  std::vector<Curve> All{{u"VOLT?", &Data}};
  PlotView View;
};

TEST_F(PlotViewTest, BeginsWithAllAndFollowsWhatComes) {
  ExpectX(0, 100);
  ExpectY(-10, 210);
  Data.Append(200, 400);
  View.Follow(All);
  ExpectX(0, 200);
  ExpectY(-20, 420);
  EXPECT_TRUE(View.ShowsAll());
}

TEST_F(PlotViewTest, ZoomsAtAPlaceThatStaysWhereItIs) {
  View.ZoomX(2, 0.25);
  ExpectX(12.5, 62.5);
  View.ZoomX(0.5, 0.25);
  ExpectX(0, 100);
}

TEST_F(PlotViewTest, TheValuesThatAreSeenFillTheHeight) {
  View.ZoomX(2, 0);
  View.Follow(All);
  ExpectX(0, 50);
  ExpectY(-5, 105);
  EXPECT_TRUE(View.FollowsY());
  View.ZoomY(2, 0.5);
  View.ZoomX(2, 0);
  View.Follow(All);
  ExpectY(22.5, 77.5);
  EXPECT_FALSE(View.FollowsY());
}

TEST_F(PlotViewTest, AZoomedPartStaysWhenMoreComes) {
  View.ZoomX(2, 0);
  Data.Append(200, 0);
  View.Follow(All);
  ExpectX(0, 50);
}

TEST_F(PlotViewTest, PansByShares) {
  View.ZoomX(2, 0);
  View.Pan(0.5, 0);
  ExpectX(25, 75);
  View.Pan(0, 0.1);
  ExpectY(12, 232);
}

TEST_F(PlotViewTest, SomeOfTheWholeStaysInSight) {
  View.Pan(50, 0);
  ExpectX(100, 200);
  View.Pan(-50, 0);
  ExpectX(-100, 0);
}

TEST_F(PlotViewTest, ShowsAllAgain) {
  View.ZoomX(4, 0.3);
  View.ZoomY(4, 0.3);
  View.ShowAll();
  View.Follow(All);
  ExpectX(0, 100);
  ExpectY(-10, 210);
}

TEST_F(PlotViewTest, ZoomsNoFurtherThanADoubleTellsPlacesApart) {
  for (int i = 0; i < 500; ++i) View.ZoomX(2, 1);
  EXPECT_TRUE(View.X().IsWide());
  EXPECT_GE(View.X().To - View.X().From, 100e-12);
  for (int i = 0; i < 500; ++i) View.ZoomX(0.5, 0.5);
  EXPECT_LE(View.X().To - View.X().From, 10000);
}

TEST_F(PlotViewTest, OneValueOrNoneOrOneFromEndToEndOfADoubleIsSeen) {
  numbers::Series one;
  one.Append(0, 5);
  View.Follow({{u"A?", &one}});
  ExpectX(-1, 1);
  ExpectY(2.25, 7.75);
  View.Follow({});
  ExpectX(0, 1);
  numbers::Series wide;
  wide.Append(0, -1.7e308);
  wide.Append(1, 1.7e308);
  View.Follow({{u"A?", &wide}});
  EXPECT_TRUE(View.Y().IsWide());
  numbers::Series none;
  none.Append(3, numbers::Gap);
  none.Append(4, numbers::Overload);
  View.Follow({{u"A?", &none}});
  EXPECT_TRUE(View.Y().IsWide());
}

TEST_F(PlotViewTest, ACurveWithoutValuesLeavesTheOthersTheirPlace) {
  const numbers::Series none;
  numbers::Series late;
  for (int i = 0; i <= 10; ++i) late.Append(1000 + i, 1);
  View.Follow({{u"A?", &none}, {u"B?", &late}});
  ExpectX(1000, 1010);
}

TEST_F(PlotViewTest, ValuesFurtherApartThanADoubleHoldsAreSeenOnBothSidesOfZero) {
  numbers::Series wide;
  wide.Append(0, -1.7e308);
  wide.Append(1, 1.7e308);
  View.Follow({{u"A?", &wide}});
  EXPECT_LT(View.Y().From, -1e299);
  EXPECT_GT(View.Y().To, 1e299);
}

} // namespace
} // namespace portico::plot
