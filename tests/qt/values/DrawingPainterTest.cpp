#include "qt/values/DrawingPainter.h"
#include "qt/values/SteepStrokes.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QSvgGenerator>

#include <cmath>

namespace portico::qt {
namespace {

constexpr int Width = 300;
constexpr int Height = 100;

Polyline Line(std::vector<DrawnPoint> points, Dash pattern = Dash::Solid) {
  return {.Points = std::move(points), .Colour = Ink::Text, .Width = 1, .Pattern = pattern};
}

/// In each column of pixels up and down between two heights, as noise is.
std::vector<DrawnPoint> Noise(double top, double bottom) {
  std::vector<DrawnPoint> points;
  for (int x = 0; x < Width; ++x) {
    points.push_back({x + 0.5, x % 2 == 0 ? top : bottom});
    points.push_back({x + 0.5, x % 2 == 0 ? bottom : top});
  }
  return points;
}

std::vector<DrawnPoint> Wave() {
  std::vector<DrawnPoint> points;
  for (int x = 0; x < Width; ++x) points.push_back({x + 0.5, 50 + 30 * std::sin(x / 20.0)});
  return points;
}

class DrawingPainterTest : public testing::Test {
protected:
  void Draw(const Polyline& line, double scale = 1) {
    m_image = QImage(static_cast<int>(Width * scale), static_cast<int>(Height * scale), QImage::Format_RGB32);
    m_image.setDevicePixelRatio(scale);
    m_image.fill(Qt::white);
    QPainter painter(&m_image);
    Paint({.Width = Width, .Height = Height, .Parts = {line}}, Inks(), painter);
  }
  /// From 0 for the ground to 255 for the line's colour.
  int InkAt(int x, int y) const { return 255 - qGray(m_image.pixel(x, y)); }
  int MostInkIn(int column) const {
    int most = 0;
    for (int y = 0; y < m_image.height(); ++y) most = std::max(most, InkAt(column, y));
    return most;
  }
  bool HasPaleInk() const {
    for (int x = 0; x < m_image.width(); ++x) {
      for (int y = 0; y < m_image.height(); ++y) {
        if (InkAt(x, y) > 0 && InkAt(x, y) < 255) return true;
      }
    }
    return false;
  }

  QImage m_image;
};

TEST_F(DrawingPainterTest, NoiseFillsItsColumnsAndNothingBesideThem) {
  for (const double scale : {1.0, 2.0}) {
    Draw(Line(Noise(20, 80)), scale);
    for (int x = 0; x < m_image.width(); ++x) {
      for (int y = 0; y < m_image.height(); ++y) {
        const bool isWithin = y >= 20 * scale && y < 80 * scale;
        ASSERT_EQ(InkAt(x, y), isWithin ? 255 : 0) << x << ", " << y << " at scale " << scale;
      }
    }
  }
}

TEST_F(DrawingPainterTest, ASmoothLineOfManyPointsHasSmoothEdges) {
  Draw(Line(Wave()));
  EXPECT_TRUE(HasPaleInk());
  for (int x = 1; x < Width - 1; ++x) EXPECT_GT(MostInkIn(x), 80) << x;
}

TEST_F(DrawingPainterTest, ASpikeInASmoothLineStandsInItsColumnAndBreaksNothing) {
  std::vector<DrawnPoint> points = Wave();
  const DrawnPoint foot = points[150];
  points.insert(points.begin() + 150, {foot, {foot.X, 2}});
  Draw(Line(points));
  for (int y = 2; y < static_cast<int>(foot.Y) - 2; ++y) {
    EXPECT_EQ(InkAt(150, y), 255) << y;
    EXPECT_EQ(InkAt(148, y) + InkAt(153, y), 0) << y;
  }
  for (int x = 1; x < Width - 1; ++x) EXPECT_GT(MostInkIn(x), 80) << x;
}

TEST_F(DrawingPainterTest, ADashedLineOfManyPointsIsDashed) {
  std::vector<DrawnPoint> points;
  for (int x = 0; x < Width; ++x) points.push_back({x + 0.5, 50});
  Draw(Line(points, Dash::Dashed));
  int bare = 0;
  for (int x = 0; x < Width; ++x) bare += MostInkIn(x) == 0 ? 1 : 0;
  EXPECT_GT(bare, Width / 10);
  Draw(Line(Noise(20, 80), Dash::Dashed));
  int gaps = 0;
  for (int y = 20; y < 80; ++y) gaps += InkAt(150, y) < 128 ? 1 : 0;
  EXPECT_GT(gaps, 5);
}

TEST_F(DrawingPainterTest, AFileKeepsTheLine) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  QSvgGenerator generator;
  generator.setOutputDevice(&file);
  generator.setViewBox(QRect(0, 0, Width, Height));
  QPainter painter(&generator);
  Paint({.Width = Width, .Height = Height, .Parts = {Line(Noise(20, 80))}}, Inks(), painter);
  painter.end();
  EXPECT_EQ(file.data().count("<polyline"), 1) << file.data().left(2000).toStdString();
  EXPECT_EQ(file.data().count("<rect"), 0);
}

TEST(SteepStrokesTest, EachColumnHasOneBarAndNoLine) {
  const SteepStrokes strokes(Noise(20.25, 79.5));
  EXPECT_TRUE(strokes.Lines.empty());
  ASSERT_EQ(strokes.Bars.size(), std::size_t{Width});
  for (std::size_t i = 0; i < strokes.Bars.size(); ++i) {
    EXPECT_EQ(strokes.Bars[i], (DrawnRectangle{static_cast<double>(i), 20, 1, 60})) << i;
  }
}

TEST(SteepStrokesTest, BarsOfAColumnMakeTheOneThatCoversBoth) {
  const SteepStrokes strokes({{7.5, 50}, {7.5, 20}, {7.5, 80}, {7.5, 40}});
  ASSERT_EQ(strokes.Bars.size(), 1U);
  EXPECT_EQ(strokes.Bars[0], (DrawnRectangle{7, 20, 1, 60}));
}

TEST(SteepStrokesTest, WhatLeadsFromBarToBarIsInThem) {
  const SteepStrokes strokes({{7.5, 50}, {7.5, 20}, {7.5, 20}, {8.5, 26}, {8.5, 26}, {8.5, 60}});
  EXPECT_EQ(strokes.Bars, (std::vector<DrawnRectangle>{{7, 20, 1, 30}, {8, 20, 1, 40}}));
  EXPECT_TRUE(strokes.Lines.empty());
}

TEST(SteepStrokesTest, LinesGoOnWhereABarHasEnded) {
  const SteepStrokes strokes({{0, 50}, {1, 51}, {2, 52}, {2, 10}, {3, 11}, {4, 12}});
  EXPECT_EQ(strokes.Bars, (std::vector<DrawnRectangle>{{2, 10, 1, 42}}));
  const std::vector<std::vector<DrawnPoint>> lines = {{{0, 50}, {1, 51}, {2, 52}}, {{2, 10}, {3, 11}, {4, 12}}};
  EXPECT_EQ(strokes.Lines, lines);
}

TEST(SteepStrokesTest, ValuesThatHaveAColumnEachAreALine) {
  std::vector<DrawnPoint> points;
  for (int i = 0; i < 100; ++i) points.push_back({i * 0.9, i % 2 == 0 ? 10.0 : 90.0});
  const SteepStrokes strokes(points);
  EXPECT_TRUE(strokes.Bars.empty());
  EXPECT_EQ(strokes.Lines, (std::vector<std::vector<DrawnPoint>>{points}));
}

TEST(SteepStrokesTest, ColumnsThatAreApartAreJoinedByALine) {
  const SteepStrokes strokes({{0, 10}, {0, 50}, {5, 20}, {5, 60}});
  EXPECT_EQ(strokes.Bars, (std::vector<DrawnRectangle>{{0, 10, 1, 40}, {5, 20, 1, 40}}));
  EXPECT_EQ(strokes.Lines, (std::vector<std::vector<DrawnPoint>>{{{0, 50}, {5, 20}}}));
}

TEST(SteepStrokesTest, ALowColumnBetweenTallOnesKeepsItsLine) {
  const SteepStrokes strokes({{0, 10}, {0, 50}, {1, 51}, {1, 49}, {2, 52}, {2, 90}});
  EXPECT_EQ(strokes.Bars, (std::vector<DrawnRectangle>{{0, 10, 1, 40}, {2, 52, 1, 38}}));
  EXPECT_EQ(strokes.Lines, (std::vector<std::vector<DrawnPoint>>{{{0, 50}, {1, 51}, {1, 49}, {2, 52}}}));
}

TEST(SteepStrokesTest, WhatIsFlatOrWideIsALine) {
  const SteepStrokes strokes({{0, 50}, {1, 58}, {3, 10}, {3, 18}});
  EXPECT_TRUE(strokes.Bars.empty());
  EXPECT_EQ(strokes.Lines.size(), 1U);
  EXPECT_TRUE(SteepStrokes({}).Lines.empty());
  EXPECT_TRUE(SteepStrokes({{1, 1}}).Lines.empty());
}

} // namespace
} // namespace portico::qt
