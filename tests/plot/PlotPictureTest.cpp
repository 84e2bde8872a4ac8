#include "plot/PlotPicture.h"
#include "plot/ClippedPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace portico::plot {
namespace {

class PlotPictureTest : public testing::Test {
protected:
  Picture Drawn(double width = 600, double height = 400) {
    const std::vector<Curve> curves = AsCurves();
    return Draw({.Curves = curves, .X = X, .Y = Y, .PlaceTitle = u"Time", .Cursors = Set, .Message = Message}, width,
                height, {[](StringView text) { return 7.0 * static_cast<double>(text.size()); }, 15});
  }
  std::vector<Curve> AsCurves() const {
    std::vector<Curve> curves;
    for (std::size_t i = 0; i < Data.size(); ++i) curves.push_back({u"Q" + ToText(std::int64_t(i)) + u"?", &Data[i]});
    return curves;
  }
  template <class Part>
  static std::vector<Part> PartsOf(const Picture& picture) {
    std::vector<Part> parts;
    for (const auto& part : picture.Drawn.Parts) {
      if (const auto* found = std::get_if<Part>(&part)) parts.push_back(*found);
    }
    return parts;
  }
  /// Those of a curve, without the one in the legend.
  static std::vector<Polyline> LinesOf(const Picture& picture, Ink ink) {
    std::vector<Polyline> lines = PartsOf<Polyline>(picture);
    std::erase_if(lines,
                  [&](const Polyline& line) { return line.Colour != ink || line.Points[0].Y < picture.Area.Top - 12; });
    return lines;
  }
  static std::vector<String> Texts(const Picture& picture) {
    std::vector<String> texts;
    for (const DrawnText& text : PartsOf<DrawnText>(picture)) texts.push_back(text.Text);
    return texts;
  }
  static bool Has(const std::vector<String>& texts, StringView text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  }

  std::vector<numbers::Series> Data = std::vector<numbers::Series>(1);
  numbers::Range X{0, 10};
  numbers::Range Y{0, 10};
  Cursors Set;
  String Message;
};

TEST_F(PlotPictureTest, AValueStandsAtItsPlace) {
  Data[0].Append(0, 0);
  Data[0].Append(5, 10);
  const Picture picture = Drawn();
  const auto lines = LinesOf(picture, Ink::Curve1);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].Points[0], (DrawnPoint{picture.Area.Left, picture.Area.Bottom()}));
  EXPECT_EQ(lines[0].Points[1], (DrawnPoint{picture.Area.Left + picture.Area.Width / 2, picture.Area.Top}));
}

TEST_F(PlotPictureTest, AxesAndLegendAreLabelled) {
  Data.resize(2);
  const auto texts = Texts(Drawn());
  for (const StringView text : {u"Q0?", u"Q1?", u"Time", u"10", u"10 s"}) EXPECT_TRUE(Has(texts, text)) << ToUtf8(text);
}

TEST_F(PlotPictureTest, CurvesDifferInMoreThanTheirColour) {
  Data.resize(24);
  for (auto& data : Data) {
    data.Append(1, 1);
    data.Append(2, 2);
  }
  const Picture picture = Drawn(2000);
  std::set<std::pair<Ink, Dash>> looks;
  std::set<Dash> dashes;
  for (const Polyline& line : PartsOf<Polyline>(picture)) {
    if (line.Colour < Ink::Curve1) continue;
    looks.insert({line.Colour, line.Pattern});
    dashes.insert(line.Pattern);
  }
  EXPECT_EQ(looks.size(), 24U);
  EXPECT_EQ(dashes.size(), 4U);
}

TEST_F(PlotPictureTest, AGapBreaksTheLineAndALonelyValueHasItsMark) {
  for (const double value : {1.0, 2.0, numbers::Gap, 4.0, 5.0, numbers::Gap, 7.0}) {
    Data[0].Append(static_cast<double>(Data[0].Size()), value);
  }
  const Picture picture = Drawn();
  EXPECT_EQ(LinesOf(picture, Ink::Curve1).size(), 2U);
  std::size_t marks = 0;
  for (const Marks& each : PartsOf<Marks>(picture)) marks += each.Places.size();
  EXPECT_EQ(marks, 5U + 1U) << "and the legend's";
}

TEST_F(PlotPictureTest, AmongManyOnlyALonelyValueHasAMark) {
  for (int i = 0; i < 100; ++i) Data[0].Append(i / 10.0, i == 49 || i == 51 ? numbers::Gap : 5);
  const Picture picture = Drawn();
  std::vector<DrawnPoint> marks;
  for (const Marks& each : PartsOf<Marks>(picture)) marks.insert(marks.end(), each.Places.begin(), each.Places.end());
  ASSERT_EQ(marks.size(), 1U + 1U) << "and the legend's";
  EXPECT_NEAR(marks[1].X, picture.Area.Left + 0.5 * picture.Area.Width, 1e-6);
}

TEST_F(PlotPictureTest, LinesToValuesBesideThePictureLeadOutOfIt) {
  for (const double place : {-5.0, 5.0, 15.0}) Data[0].Append(place, place);
  Y = {-20, 20};
  const Picture picture = Drawn();
  const auto lines = LinesOf(picture, Ink::Curve1);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_LT(lines[0].Points.front().X, picture.Area.Left);
  EXPECT_GT(lines[0].Points.back().X, picture.Area.Right());
}

TEST_F(PlotPictureTest, OverloadsAreTrianglesAtTheirEdge) {
  for (const double value : {1.0, numbers::Overload, -numbers::Overload}) {
    Data[0].Append(static_cast<double>(Data[0].Size()), value);
  }
  const Picture picture = Drawn();
  std::vector<Marks> triangles = PartsOf<Marks>(picture);
  std::erase_if(triangles, [](const Marks& m) { return m.Shape < MarkShape::TriangleUp; });
  ASSERT_EQ(triangles.size(), 2U);
  EXPECT_EQ(triangles[0].Shape, MarkShape::TriangleUp);
  EXPECT_LT(triangles[0].Places.at(0).Y, picture.Area.Top + 20);
  EXPECT_EQ(triangles[1].Shape, MarkShape::TriangleDown);
  EXPECT_GT(triangles[1].Places.at(0).Y, picture.Area.Bottom() - 20);
  ASSERT_EQ(triangles[0].Places.size(), 1U) << "one for each";
  ASSERT_EQ(triangles[1].Places.size(), 1U);
  EXPECT_NEAR(triangles[0].Places[0].X, picture.Area.Left + 0.1 * picture.Area.Width, 1);
  EXPECT_NEAR(triangles[1].Places[0].X, picture.Area.Left + 0.2 * picture.Area.Width, 1);
}

TEST_F(PlotPictureTest, OfAMillionValuesTheExtremesOfEachColumnAreDrawn) {
  for (int i = 0; i < 1'000'000; ++i) Data[0].Append(i / 1e5, i == 777'777 ? 9.0 : 5.0 + (i % 2));
  const Picture picture = Drawn();
  const auto lines = LinesOf(picture, Ink::Curve1);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_LE(lines[0].Points.size(), 4 * 600U);
  const auto highest = std::min_element(lines[0].Points.begin(), lines[0].Points.end(),
                                        [](const auto& a, const auto& b) { return a.Y < b.Y; });
  EXPECT_NEAR(highest->Y, picture.Area.Bottom() - 0.9 * picture.Area.Height, 1e-6);
  EXPECT_NEAR(highest->X, picture.Area.Left + 0.777777 * picture.Area.Width, 1);
}

TEST_F(PlotPictureTest, WhatLeavesThePictureIsCutOffNearItsEdge) {
  Data[0].Append(-1e9, -1e300);
  Data[0].Append(5, 5);
  Data[0].Append(1e12, 1e300);
  const Picture picture = Drawn();
  for (const Polyline& line : LinesOf(picture, Ink::Curve1)) {
    for (const DrawnPoint& point : line.Points) {
      EXPECT_GE(point.X, picture.Area.Left - 10.001);
      EXPECT_LE(point.X, picture.Area.Right() + 10.001);
      EXPECT_GE(point.Y, picture.Area.Top - 10.001);
      EXPECT_LE(point.Y, picture.Area.Bottom() + 10.001);
    }
  }
}

TEST_F(PlotPictureTest, AValueAtTheEndOfADoubleHasItsPlaceOutsideToo) {
  Data[0].Append(0, 5);
  Data[0].Append(1, 1.7e308);
  Data[0].Append(2, 5);
  Data[0].Append(3, -1.7e308);
  Data[0].Append(4, 5);
  Data[0].Append(1.7e308, 5);
  const Picture picture = Drawn();
  const auto lines = LinesOf(picture, Ink::Curve1);
  ASSERT_EQ(lines.size(), 3U);
  for (const Polyline& line : lines) {
    for (const DrawnPoint& point : line.Points) {
      EXPECT_LE(std::abs(point.X), 1000);
      EXPECT_LE(std::abs(point.Y), 1000);
    }
  }
}

TEST_F(PlotPictureTest, CursorsStandWhereTheyWereSetUnlessOutOfSight) {
  Set = {2.5, 11};
  const Picture picture = Drawn();
  const auto lines = LinesOf(picture, Ink::Cursor);
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].Points[0].X, picture.Area.Left + picture.Area.Width / 4);
}

TEST_F(PlotPictureTest, CursorsAreToldApart) {
  Set = {2.5, 7.5};
  const Picture picture = Drawn();
  const auto lines = LinesOf(picture, Ink::Cursor);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].Pattern, Dash::Solid);
  EXPECT_EQ(lines[1].Pattern, Dash::Dashed);
}

TEST_F(PlotPictureTest, NothingToSeeIsTold) {
  Data.clear();
  Message = u"Nothing is chosen.";
  EXPECT_TRUE(Has(Texts(Drawn()), u"Nothing is chosen."));
}

TEST_F(PlotPictureTest, ATinyPictureHasNoCurves) {
  Data[0].Append(1, 1);
  EXPECT_TRUE(PartsOf<Segments>(Drawn(10, 10)).empty());
  EXPECT_TRUE(PartsOf<Segments>(Drawn(10, 400)).empty());
  EXPECT_TRUE(PartsOf<Segments>(Drawn(600, 10)).empty());
}

TEST_F(PlotPictureTest, ManyCurvesLeaveRoomForThePicture) {
  Data.resize(64);
  const Picture picture = Drawn();
  EXPECT_GT(picture.Area.Height, 200);
  std::set<double> rows;
  for (const Marks& mark : PartsOf<Marks>(picture)) rows.insert(mark.Places.at(0).Y);
  EXPECT_EQ(rows.size(), 3U);
  const auto texts = Texts(picture);
  EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), [](const String& text) { return text.starts_with(u"+"); }));
}

TEST(ClippedPathTest, ALineThatEntersAndLeavesIsCutAtBothEnds) {
  ClippedPath path({0, 0, 100, 100});
  path.LineTo({-200, 50});
  path.LineTo({300, 50});
  const auto lines = path.Take();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0].front(), (DrawnPoint{-10, 50}));
  EXPECT_EQ(lines[0].back(), (DrawnPoint{110, 50}));
}

TEST(ClippedPathTest, ALineThatComesBackIsTwo) {
  ClippedPath path({0, 0, 100, 100});
  for (const DrawnPoint& point : {DrawnPoint{50, 50}, DrawnPoint{50, -500}, DrawnPoint{60, -500}, DrawnPoint{60, 50}}) {
    path.LineTo(point);
  }
  EXPECT_EQ(path.Take().size(), 2U);
}

TEST(ClippedPathTest, ALineThatLeavesAndComesBackElsewhereLeadsThroughNoCorner) {
  ClippedPath path({0, 0, 100, 100});
  for (const DrawnPoint& point : {DrawnPoint{50, 50}, DrawnPoint{200, 50}, DrawnPoint{50, -200}, DrawnPoint{50, 20}}) {
    path.LineTo(point);
  }
  const auto lines = path.Take();
  ASSERT_EQ(lines.size(), 2U);
  ASSERT_EQ(lines[0].size(), 2U);
  EXPECT_NEAR(lines[0][1].X, 110, 1e-9);
  ASSERT_EQ(lines[1].size(), 2U);
  EXPECT_NEAR(lines[1][0].Y, -10, 1e-9);
}

TEST(ClippedPathTest, ALineFromFarAwayComesFromItsSide) {
  ClippedPath path({0, 0, 100, 100});
  path.LineTo({50, 1e25});
  path.LineTo({60, 50});
  path.LineTo({70, -1e25});
  const auto lines = path.Take();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_EQ(lines[0], (std::vector<DrawnPoint>{{60, 110}, {60, 50}, {60, -10}}));
}

} // namespace
} // namespace portico::plot
