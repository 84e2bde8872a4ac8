// A picture as the user has it.

#include "platform/IPictureView.h"
#include "qt/ScreenFixture.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImage>
#include <QLabel>
#include <QScrollArea>

namespace portico::test {
namespace {

using namespace std::string_literals;

constexpr std::array PictureControls{ControlDesign{.Kind = ControlKind::PictureView, .Name = u"picture"}};
constexpr FormDesign PictureWindow{.Name = u"frmPicture", .Caption = u"Picture", .Controls = PictureControls};

class PictureViewTest : public ScreenTest {
protected:
  PictureViewTest() {
    view.Move(0, 0, 200 * FormUnitsPerPixel, 100 * FormUnitsPerPixel);
    loop.DoEvents();
  }
  static PictureFile Picture(const char* format, int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(QColor(0x20, 0x40, 0x80));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(image.save(&buffer, format));
    return {.Bytes = bytes.toStdString(), .Format = format, .Width = width, .Height = height};
  }
  QLabel& Label() const { return *qobject_cast<QLabel*>(area.widget()); }

  Ref<IForm> form = Shown(PictureWindow);
  IPictureView& view = FindControl<IPictureView>(*form, u"picture");
  QScrollArea& area = *Find<QScrollArea>(form, "picture");
};

TEST_F(PictureViewTest, ShowsEachFormat) {
  for (const char* format : {"png", "bmp", "jpg"}) EXPECT_TRUE(view.Show(Picture(format, 30, 20))) << format;
  const std::string gif =
      "GIF89a\x01\0\x01\0\x80\0\0\xFF\xFF\xFF\0\0\0!\xF9\x04\x01\0\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02"
      "D\x01\0;"s;
  EXPECT_TRUE(view.Show({.Bytes = gif, .Format = "gif", .Width = 1, .Height = 1}));
}

TEST_F(PictureViewTest, OneOfAnotherFormatOrSizeThanItsHeadSaysIsRefused) {
  PictureFile picture = Picture("png", 30, 20);
  picture.Width = 31;
  EXPECT_FALSE(view.Show(picture));
  picture = Picture("png", 30, 20);
  picture.Format = "bmp";
  EXPECT_FALSE(view.Show(picture));
  EXPECT_TRUE(Label().pixmap().isNull());
}

TEST_F(PictureViewTest, FitsItsFieldWithTheSameProportions) {
  ASSERT_TRUE(view.Show(Picture("png", 30, 20)));
  const QSize room = area.maximumViewportSize();
  EXPECT_EQ(Label().height(), room.height());
  EXPECT_NEAR(Label().width(), room.height() * 1.5, 1);
  view.Move(0, 0, 400 * FormUnitsPerPixel, 300 * FormUnitsPerPixel);
  EXPECT_EQ(Label().height(), area.maximumViewportSize().width() * 2 / 3);
  view.FitsField(false);
  EXPECT_EQ(Label().size(), QSize(30, 20) / area.devicePixelRatioF());
}

TEST_F(PictureViewTest, IsCopiedWhole) {
  ASSERT_TRUE(view.Show(Picture("png", 30, 20)));
  view.Copy();
  const QImage copied = QGuiApplication::clipboard()->image();
  EXPECT_EQ(copied.size(), QSize(30, 20));
  EXPECT_EQ(copied.pixelColor(29, 19), QColor(0x20, 0x40, 0x80));
  QGuiApplication::clipboard()->clear();
}

TEST_F(PictureViewTest, TellsWhoeverCannotSeeItWhatItIs) {
  ASSERT_TRUE(view.Show(Picture("png", 30, 20)));
  EXPECT_EQ(area.accessibleName(), "Picture, 30 by 20 pixels");
  EXPECT_EQ(area.focusPolicy(), Qt::StrongFocus);
}

} // namespace
} // namespace portico::test
