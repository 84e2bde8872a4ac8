#include "qt/controls/Icons.h"

#include "qt/values/QtText.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <memory>
#include <utility>

// The pictures lie in a static library, whose resources nobody registers by themselves. The macro declares a function
// of the global namespace; further calls of it do nothing.
static void RegisterIcons() { Q_INIT_RESOURCE(icons); }

namespace portico::qt {
namespace {

// Pale, and yet to be told apart on dark ground too.
constexpr int OpacityOfDisabled = 125; // of 255
constexpr int GreyOfDisabled = 140;

constexpr int LetterIconSize = 64;

QString FileOf(const QString& key) { return ":/icons/" + key + ".svg"; }

QImage Faded(QImage picture) {
  for (int y = 0; y < picture.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < picture.width(); ++x) {
      const int grey = (qGray(line[x]) + GreyOfDisabled) / 2;
      line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) * OpacityOfDisabled / 255);
    }
  }
  return picture;
}

/// Qt's own engine for SVG is a plugin that an installation may lack, and its disabled pages stay white in dark themes.
class PictureEngine final : public QIconEngine {
public:
  explicit PictureEngine(const QString& file) : m_renderer(std::make_shared<QSvgRenderer>(file)) {
    m_renderer->setAspectRatioMode(Qt::KeepAspectRatio);
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    if (mode != QIcon::Disabled) {
      m_renderer->render(painter, rect);
      return;
    }
    QImage picture(rect.size() * painter->device()->devicePixelRatioF(), QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter inner(&picture);
    m_renderer->render(&inner);
    inner.end();
    painter->drawImage(rect, Faded(std::move(picture)));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override {
    return m_renderer->defaultSize().scaled(size, Qt::KeepAspectRatio);
  }

  QIconEngine* clone() const override { return new PictureEngine(*this); }

private:
  std::shared_ptr<QSvgRenderer> m_renderer; // drawing does not change it
};

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

QIcon Icon(const QString& key) {
  RegisterIcons();
  const QString file = FileOf(key);
  return QFile::exists(file) ? QIcon(new PictureEngine(file)) : QIcon();
}

QIcon IconOf(StringView key) {
  const QIcon icon = Icon(ToQt(key));
  return icon.isNull() ? LetterIcon(key) : icon;
}

QSize IconSizeOf(StringView key) {
  RegisterIcons();
  const QString file = FileOf(ToQt(key));
  return QFile::exists(file) ? QSvgRenderer(file).defaultSize() : QSize();
}

} // namespace portico::qt
