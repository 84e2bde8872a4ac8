#include "qt/controls/Icons.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace portico::qt {
namespace {

const QStringList Keys{"ClosedLoop", "Copy",  "Copyto",    "Cut",   "Instrument",  "Log",    "Logger",     "Logger0",
                       "OpenLoop",   "Paste", "Pastefrom", "Pause", "Print",       "Run",    "Run2Cursor", "Save",
                       "Status",     "Step",  "Stop",      "Timed", "TolvaneLogo", "ViewLog"};

const QString Logo = "TolvaneLogo";

class Icons : public ::testing::Test {
protected:
  static void SetUpTestSuite() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static std::array<char, 6> name{"icons"};
    static std::array<char*, 2> arguments{name.data(), nullptr};
    static const QGuiApplication application(count, arguments.data());
  }
};

QImage Rendered(const QIcon& icon, QSize size, double scale, QIcon::Mode mode = QIcon::Normal) {
  return icon.pixmap(size, scale, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

int Count(const QImage& picture, const std::function<bool(QRgb)>& counts) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) count += counts(picture.pixel(x, y)) ? 1 : 0;
  return count;
}

int Inked(const QImage& picture) {
  return Count(picture, [](QRgb pixel) { return qAlpha(pixel) >= 128; });
}

/// As the guidelines for accessible content define both.
double Luminance(QRgb pixel) {
  const auto linear = [](int part) {
    const double value = part / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

double Contrast(double one, double other) { return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05); }

TEST_F(Icons, ThereIsAPictureForEachOfThe22KeysAndOneOfTheProgram) {
  Icon("portico"); // so that they are known
  QStringList expected{"portico.svg"};
  for (const QString& key : Keys) expected << key + ".svg";
  QStringList found = QDir(":/icons").entryList();
  found.sort();
  expected.sort();
  EXPECT_EQ(Keys.size(), 22);
  EXPECT_EQ(found, expected);
}

TEST_F(Icons, EachShowsSomethingAtEverySizeAndScale) {
  for (const QString& key : Keys + QStringList{"portico"}) {
    const QIcon icon = Icon(key);
    ASSERT_FALSE(icon.isNull()) << key.toStdString();
    for (const int size : {16, 24, 32, 48, 64})
      for (const double scale : {1.0, 1.5, 2.0}) {
        const QSize place(key == Logo ? size * 6 : size, size);
        const QImage picture = Rendered(icon, place, scale);
        EXPECT_EQ(picture.size(), place * scale) << key.toStdString();
        EXPECT_GT(Inked(picture) * 8, picture.width() * picture.height()) << key.toStdString() << " at " << size;
      }
  }
}

TEST_F(Icons, EachIsSharpAt16Pixels) {
  // Most of what lies on the pixel grid is there whole; what is off by half a pixel has seams all around.
  for (const QString& key : Keys) {
    if (key == Logo || key == "Cut") continue; // the one is made for 22 pixels, the other is nothing but slopes
    const QImage picture = Rendered(Icon(key), {16, 16}, 1.0);
    const int whole = Count(picture, [](QRgb pixel) { return qAlpha(pixel) == 255; });
    const int touched = Count(picture, [](QRgb pixel) { return qAlpha(pixel) > 0; });
    EXPECT_GT(whole * 10, touched * 4) << key.toStdString() << ": " << whole << " of " << touched;
  }
}

TEST_F(Icons, NoTwoLookAlike) {
  for (qsizetype one = 0; one < Keys.size(); ++one)
    for (qsizetype other = 0; other < one; ++other)
      EXPECT_NE(Rendered(Icon(Keys[one]), {16, 16}, 1.0), Rendered(Icon(Keys[other]), {16, 16}, 1.0));
}

TEST_F(Icons, EachIsReadableOnLightAndOnDarkToolbars) {
  for (const QString& key : Keys) {
    const QImage picture = Rendered(Icon(key), {key == Logo ? 192 : 32, 32}, 1.0);
    for (const QRgb ground : {qRgb(0xEF, 0xEF, 0xEF), qRgb(0x31, 0x36, 0x3B)}) {
      // What accessible pictures need: their shape stands out 3 to 1. White pages do so on one of the two grounds only.
      const int seen = Count(picture, [ground](QRgb pixel) {
        return qAlpha(pixel) == 255 && Contrast(Luminance(pixel), Luminance(ground)) >= 3;
      });
      EXPECT_GT(seen * 10, Inked(picture) * 3) << key.toStdString() << " on " << std::hex << ground;
    }
  }
}

TEST_F(Icons, DisabledOnesAreGreyAndPale) {
  for (const QString& key : Keys) {
    const QImage picture = Rendered(Icon(key), {24, 24}, 2.0, QIcon::Disabled);
    EXPECT_TRUE(picture.allGray()) << key.toStdString();
    EXPECT_EQ(Count(picture, [](QRgb pixel) { return qAlpha(pixel) >= 128; }), 0) << key.toStdString();
    EXPECT_GT(Count(picture, [](QRgb pixel) { return qAlpha(pixel) > 85; }), 50) << key.toStdString();
  }
}

TEST_F(Icons, ADisabledOneIsPaintedWhereItsRectangleIs) {
  QImage ground(40, 40, QImage::Format_ARGB32);
  ground.fill(Qt::transparent);
  QPainter painter(&ground);
  Icon("Stop").paint(&painter, QRect(20, 20, 16, 16), Qt::AlignCenter, QIcon::Disabled);
  painter.end();
  EXPECT_EQ(qAlpha(ground.pixel(8, 8)), 0);
  EXPECT_GT(qAlpha(ground.pixel(28, 28)), 85);
}

TEST_F(Icons, TheLogoIsAWidePicture) {
  EXPECT_EQ(Icon("TolvaneLogo").actualSize({96, 22}), QSize(96, 22));
  EXPECT_EQ(Icon("TolvaneLogo").actualSize({500, 44}), QSize(192, 44));
  EXPECT_EQ(Icon("Run").actualSize({500, 44}), QSize(44, 44));
}

TEST_F(Icons, ACopyDrawsTheSame) {
  QIcon copy = Icon("Run");
  copy.detach();
  EXPECT_EQ(Rendered(copy, {32, 32}, 1.0), Rendered(Icon("Run"), {32, 32}, 1.0));
}

TEST_F(Icons, AnUnknownKeyHasNone) {
  EXPECT_TRUE(Icon("run").isNull());
  EXPECT_TRUE(Icon({}).isNull());
}

} // namespace
} // namespace portico::qt
