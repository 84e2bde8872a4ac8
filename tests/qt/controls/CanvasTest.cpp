// A canvas as the user has it, and what its drawings are in files.

#include "qt/controls/Canvas.h"
#include "platform/ICanvas.h"
#include "qt/ScreenFixture.h"
#include "qt/desktop/DrawingOutput.h"

#include <QImage>
#include <QSvgRenderer>
#include <QWheelEvent>

namespace portico::test {
namespace {

constexpr std::array CanvasControls{ControlDesign{.Kind = ControlKind::Canvas, .Name = u"canvas"},
                                    ControlDesign{.Kind = ControlKind::Canvas, .Name = u"next"}};
constexpr FormDesign CanvasWindow{.Name = u"frmCanvas", .Caption = u"Canvas", .Controls = CanvasControls};

/// The left half in a curve's colour, framed; a mark and a text in the right one.
Drawing Sample() {
  return {200,
          100,
          {Fill{{0, 0, 100, 100}, Ink::Curve1}, Fill{{100, 0, 100, 100}, Ink::Ground},
           Marks{{{150, 50}}, Ink::Text, MarkShape::Square, 20},
           DrawnText{{190, 10}, u"Volt", Ink::Text, TextAlignment::Right}}};
}

class CanvasTest : public ScreenTest {
protected:
  CanvasTest() {
    canvas.Move(0, 0, 3000, 1500);
    loop.DoEvents();
  }
  QImage Picture() const { return widget.grab().toImage(); }
  void Note(const std::string& what) { seen.push_back(what); }

  Ref<IForm> form = Shown(CanvasWindow);
  ICanvas& canvas = FindControl<ICanvas>(*form, u"canvas");
  qt::CanvasWidget& widget = *Find<qt::CanvasWidget>(form, "canvas");
  std::vector<std::string> seen;
};

TEST_F(CanvasTest, PaintsItsDrawingOnTheGroundOfThePalette) {
  canvas.Show(Sample());
  const QImage picture = Picture();
  EXPECT_EQ(picture.pixelColor(50, 50), QColor(0x00, 0x62, 0xA3));
  EXPECT_EQ(picture.pixelColor(120, 50), widget.palette().color(QPalette::Base));
  EXPECT_EQ(picture.pixelColor(150, 50), widget.palette().color(QPalette::Text));
}

TEST_F(CanvasTest, FollowsADarkPalette) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  widget.setPalette(dark);
  canvas.Show(Sample());
  const QImage picture = Picture();
  EXPECT_EQ(picture.pixelColor(50, 50), QColor(0x56, 0xB4, 0xE9));
  EXPECT_EQ(picture.pixelColor(120, 50), QColor(30, 30, 30));
  EXPECT_EQ(picture.pixelColor(150, 50), QColor(230, 230, 230));
}

TEST_F(CanvasTest, DrawsNothingBesideAClip) {
  canvas.Show({200, 100, {Clip{{0, 0, 50, 100}}, Fill{{0, 0, 200, 100}, Ink::Curve1}}});
  EXPECT_EQ(Picture().pixelColor(40, 50), QColor(0x00, 0x62, 0xA3));
  EXPECT_EQ(Picture().pixelColor(60, 50), widget.palette().color(QPalette::Base));
}

TEST_F(CanvasTest, TellsMouseAndWheel) {
  const auto note = [this](const char* name) {
    return [this, name](const MouseEvent& event) {
      Note(name + std::to_string(event.Button) + " " + std::to_string(static_cast<int>(event.X)) + "," +
           std::to_string(static_cast<int>(event.Y)));
    };
  };
  canvas.MouseDown().Connect(note("down"));
  canvas.MouseUp().Connect(note("up"));
  canvas.Wheel().Connect([this](const MouseEvent& event, double notches) {
    Note("wheel " + std::to_string(notches) + " " + std::to_string(event.Shift) + " " +
         std::to_string(static_cast<int>(event.X)));
  });
  QTest::mousePress(&widget, Qt::LeftButton, {}, {10, 20});
  QTest::mouseRelease(&widget, Qt::LeftButton, {}, {30, 20});
  QWheelEvent wheel({40, 20}, widget.mapToGlobal(QPointF(40, 20)), {}, {0, -120}, {}, Qt::ControlModifier,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&widget, &wheel);
  EXPECT_EQ(seen, (std::vector<std::string>{"down1 150,300", "up1 450,300", "wheel -1.000000 2 600"}));
}

TEST_F(CanvasTest, TellsKeysAndLeavesTabToTheForm) {
  canvas.KeyDown().Connect(
      [this](std::int32_t code, std::int32_t shift) { Note(std::to_string(code) + " " + std::to_string(shift)); });
  widget.setFocus();
  QTest::keyClick(&widget, Qt::Key_Plus);
  QTest::keyClick(&widget, Qt::Key_Minus);
  QTest::keyClick(&widget, Qt::Key_Left, Qt::ControlModifier);
  QTest::keyClick(&widget, Qt::Key_Home);
  QTest::keyClick(&widget, Qt::Key_0);
  EXPECT_EQ(seen, (std::vector<std::string>{"107 0", "109 0", "37 2", "36 0", "48 0"}));
  QTest::keyClick(&widget, Qt::Key_Tab);
  EXPECT_FALSE(widget.hasFocus());
}

TEST_F(CanvasTest, IsReadToWhoeverCannotSeeIt) {
  canvas.Describe(u"Plot", u"MEAS:VOLT? has 3 values.");
  EXPECT_EQ(widget.accessibleName(), "Plot");
  EXPECT_EQ(widget.accessibleDescription(), "MEAS:VOLT? has 3 values.");
}

class DrawingOutputTest : public testing::Test {
protected:
  static QByteArray Encoded(PictureFormat format, const Drawing& drawing = Sample()) {
    return QByteArray::fromStdString(qt::DrawingOutput().Encode(drawing, format));
  }
};

TEST_F(DrawingOutputTest, AnImageHasTwoPixelsForEachOfTheDrawings) {
  const QImage image = QImage::fromData(Encoded(PictureFormat::Png), "PNG");
  EXPECT_EQ(image.size(), QSize(400, 200));
  EXPECT_EQ(image.pixelColor(100, 100), QColor(0x00, 0x62, 0xA3));
  EXPECT_EQ(image.pixelColor(240, 100), QColor(Qt::white));
  EXPECT_EQ(image.pixelColor(300, 100), QColor(Qt::black));
}

TEST_F(DrawingOutputTest, VectorsKeepTheirTextsAndSize) {
  const QByteArray bytes = Encoded(PictureFormat::Svg);
  EXPECT_TRUE(bytes.contains(">Volt</text>")) << bytes.toStdString();
  QSvgRenderer renderer(bytes);
  EXPECT_TRUE(renderer.isValid());
  EXPECT_EQ(renderer.viewBox(), QRect(0, 0, 200, 100));
}

TEST_F(DrawingOutputTest, ADocumentHasOnePageOfTheDrawingsSize) {
  const QByteArray bytes = Encoded(PictureFormat::Pdf);
  EXPECT_TRUE(bytes.startsWith("%PDF-"));
  EXPECT_TRUE(bytes.contains("/MediaBox [0 0 150")) << "200 pixels are 150 points";
  EXPECT_EQ(bytes.count("/Type /Page\n"), 1);
}

TEST_F(DrawingOutputTest, APictureOfNoSizeOrTooLargeAOneIsRefused) {
  for (const Drawing& drawing : {Drawing{}, Drawing{100, 0.5, {}}, Drawing{10001, 100, {}}}) {
    EXPECT_EQ(Raised([&] { Encoded(PictureFormat::Png, drawing); }).Number, 5);
  }
  HuntERR::Reset();
}

} // namespace
} // namespace portico::test
