#include "qt/controls/PictureView.h"

#include "qt/values/PrinterContext.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPrinter>

#include <memory>
#include <utility>

namespace portico::qt {
namespace {

constexpr int MostMegabytes = 256; // for one picture, however its pixels are kept

} // namespace

PictureView::PictureView(const ControlDesign& design, std::shared_ptr<FormLife> life, QScrollArea& area)
    : PlacedControl(design, std::move(life), area), m_area(area), m_label(*new QLabel) {
  m_label.setScaledContents(true);
  area.setWidget(&m_label); // which then belongs to it
  area.setAlignment(Qt::AlignCenter);
  area.setFocusPolicy(Qt::StrongFocus); // so that the arrows scroll
}

bool PictureView::Show(const PictureFile& picture) {
  QImageReader::setAllocationLimit(MostMegabytes);
  QByteArray bytes =
      QByteArray::fromRawData(picture.Bytes.data(), static_cast<qsizetype>(picture.Bytes.size())); // no copy
  QBuffer buffer(&bytes);
  QImageReader reader(&buffer, QByteArray::fromStdString(picture.Format));
  reader.setAutoDetectImageFormat(false);
  m_picture = reader.read();
  if (m_picture.size() != QSize(picture.Width, picture.Height)) m_picture = {};
  m_label.setPixmap(QPixmap::fromImage(m_picture));
  const QString name = QStringLiteral("Picture, %1 by %2 pixels").arg(m_picture.width()).arg(m_picture.height());
  m_label.setAccessibleName(name);
  m_area.setAccessibleName(name);
  ShowSize();
  return !m_picture.isNull();
}

void PictureView::FitsField(bool newValue) {
  m_fitsField = newValue;
  ShowSize();
}

/// A pixel of the picture is one of the screen's, not one of the toolkit's, which may be larger.
void PictureView::ShowSize() {
  const QSize room = m_area.maximumViewportSize();
  const QSize pixels = m_picture.size();
  m_label.resize(m_fitsField ? pixels.scaled(room, Qt::KeepAspectRatio) : pixels / m_area.devicePixelRatioF());
}

void PictureView::Put(const QRect& place) {
  PlacedControl::Put(place);
  ShowSize();
}

void PictureView::Copy() { QGuiApplication::clipboard()->setImage(m_picture); }

void PictureView::SelPrint(const Ref<IDeviceContext>& hDC) {
  QPainter painter(&Cast<IPrinterContext>(hDC)->Printer());
  const QRect page = painter.viewport();
  painter.drawImage(QRect(page.topLeft(), m_picture.size().scaled(page.size(), Qt::KeepAspectRatio)), m_picture);
}

} // namespace portico::qt
