#include "qt/desktop/DrawingOutput.h"

#include "qt/text/TextPrinter.h"
#include "qt/values/DrawingPainter.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>

namespace portico::qt {
namespace {

constexpr int PixelsPerInch = 96;
constexpr double PointsPerInch = 72;
constexpr int ImageScale = 2; // pixels of an image to one of the drawing

QSizeF SizeOf(const Drawing& drawing) { return {drawing.Width, drawing.Height}; }
QSize WholeSizeOf(const Drawing& drawing) {
  return {static_cast<int>(std::ceil(drawing.Width)), static_cast<int>(std::ceil(drawing.Height))};
}

/// The size of letters is told in pixels, so that it is the same whatever the device makes of points.
QFont FontOfDrawings() {
  QFont font = QGuiApplication::font();
  font.setPixelSize(QFontInfo(font).pixelSize());
  return font;
}

void PaintOn(QPaintDevice& device, const Drawing& drawing, double scale) {
  QPainter painter;
  HuntERR::Check(painter.begin(&device), ErrorNumber::CannotCarryOut, u"The picture cannot be drawn.");
  painter.scale(scale, scale);
  painter.setFont(FontOfDrawings());
  painter.fillRect(QRectF(QPointF(0, 0), SizeOf(drawing)), Qt::white);
  Paint(drawing, Inks(), painter);
}

void WriteImage(const Drawing& drawing, QBuffer& buffer) {
  QImage image(WholeSizeOf(drawing) * ImageScale, QImage::Format_RGB32);
  HuntERR::Check(!image.isNull(), ErrorNumber::OutOfMemory, u"There is no memory for the picture.");
  PaintOn(image, drawing, ImageScale);
  image.save(&buffer, "PNG");
}

void WriteVectors(const Drawing& drawing, QBuffer& buffer) {
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setSize(WholeSizeOf(drawing));
  generator.setViewBox(QRect(QPoint(0, 0), WholeSizeOf(drawing)));
  generator.setResolution(PixelsPerInch);
  PaintOn(generator, drawing, 1);
}

void WritePage(const Drawing& drawing, QBuffer& buffer) {
  QPdfWriter writer(&buffer);
  writer.setPageSize(QPageSize(SizeOf(drawing) * PointsPerInch / PixelsPerInch, QPageSize::Point));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0));
  writer.setResolution(PixelsPerInch * 4);
  PaintOn(writer, drawing, 4);
}

} // namespace

std::string DrawingOutput::Encode(const Drawing& drawing, PictureFormat format) const {
  CheckPicture(drawing);
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  switch (format) {
  case PictureFormat::Png:
    WriteImage(drawing, buffer);
    break;
  case PictureFormat::Svg:
    WriteVectors(drawing, buffer);
    break;
  case PictureFormat::Pdf:
    WritePage(drawing, buffer);
    break;
  }
  return buffer.data().toStdString();
}

void DrawingOutput::Print(const Drawing& drawing, IDeviceContext& context) const {
  CheckPicture(drawing);
  auto& printer = dynamic_cast<IPrinterContext&>(context).Printer();
  const QRectF page = printer.pageRect(QPrinter::DevicePixel);
  PaintOn(printer, drawing, std::min(page.width() / drawing.Width, page.height() / drawing.Height));
}

} // namespace portico::qt
