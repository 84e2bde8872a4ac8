#include "qt/controls/Look.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IPictureBox.h"
#include "qt/controls/Icons.h"
#include "qt/values/QtText.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <array>

namespace portico::qt {
namespace {

// By number, from 1 on.
constexpr std::array Pointers{Qt::ArrowCursor,   Qt::CrossCursor,     Qt::IBeamCursor,   Qt::ArrowCursor,
                              Qt::SizeAllCursor, Qt::SizeBDiagCursor, Qt::SizeVerCursor, Qt::SizeFDiagCursor,
                              Qt::SizeHorCursor, Qt::UpArrowCursor,   Qt::WaitCursor,    Qt::ForbiddenCursor,
                              Qt::BusyCursor,    Qt::WhatsThisCursor, Qt::SizeAllCursor};

constexpr int LetterIconSize = 64;

QString PathOf(StringView key) { return ":/icons/" + ToQt(key) + ".svg"; }

QIcon LetterIcon(StringView key) {
  QPixmap pixmap(LetterIconSize, LetterIconSize);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setPen(QPen(Qt::darkGray, LetterIconSize / 16.0));
  painter.drawRect(pixmap.rect().adjusted(4, 4, -4, -4));
  QFont font = painter.font();
  font.setPixelSize(LetterIconSize * 5 / 8);
  painter.setFont(font);
  painter.drawText(pixmap.rect(), Qt::AlignCenter, ToQt(key.substr(0, 1)));
  return {pixmap};
}

} // namespace

QCursor PointerShape(std::int32_t shape) {
  if (shape < 1 || shape > std::ssize(Pointers)) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
  return {Pointers[static_cast<std::size_t>(shape) - 1]};
}

QColor ColorOf(std::int32_t number, const QPalette& palette) {
  if (number == SystemWindowText) return palette.color(QPalette::WindowText);
  if (number == SystemButtonFace) return palette.color(QPalette::Button);
  return {number & 0xFF, (number >> 8) & 0xFF, (number >> 16) & 0xFF};
}

QIcon IconOf(StringView key) {
  const QIcon icon = Icon(ToQt(key));
  return icon.isNull() ? LetterIcon(key) : icon;
}

QSize IconSizeOf(StringView key) {
  InitIcons();
  return QFile::exists(PathOf(key)) ? QSvgRenderer(PathOf(key)).defaultSize() : QSize();
}

QString Spoken(const String& caption) {
  String text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return ToQt(text);
}

} // namespace portico::qt
