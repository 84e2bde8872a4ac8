#include "qt/desktop/HelpPages.h"

#include "qt/values/QtText.h"

#include <QDir>
#include <QFile>

namespace portico::qt {
namespace {

const QString TopicFile = QStringLiteral("topics.txt");
const QString ContentsTopic = QStringLiteral("contents");
const QString ContentsPage = QStringLiteral("index.md");

QString ReadAll(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// What stands between the first '`' and the '\'' behind it.
QString NameIn(StringView macro) {
  const auto begin = macro.find(u'`');
  if (begin == StringView::npos) return {};
  return ToQt(macro.substr(begin + 1, macro.find(u'\'', begin) - begin - 1));
}

} // namespace

bool HelpPages::Exists() const { return QDir(m_folder).exists(TopicFile) || QDir(m_folder).exists(ContentsPage); }

QUrl HelpPages::Contents() const {
  const QUrl page = Find(ContentsTopic);
  return page.isEmpty() ? QUrl::fromLocalFile(m_folder + '/' + ContentsPage) : page;
}

QUrl HelpPages::Find(const QString& topic) const {
  for (const QString& line : ReadAll(m_folder + '/' + TopicFile).split('\n')) {
    if (line.startsWith('#')) continue;
    const QString text = line.simplified();
    if (text.section(' ', 0, 0) != topic) continue;
    const QString page = text.section(' ', 1);
    QUrl url = QUrl::fromLocalFile(m_folder + '/' + page.section('#', 0, 0));
    if (page.contains('#')) url.setFragment(page.section('#', 1));
    return url;
  }
  return {};
}

QUrl HelpPages::TopicOf(StringView macro) const {
  const QString name = NameIn(macro);
  for (const QString& topic : {name, name.section('.', 0, -2)}) {
    QUrl page = topic.isEmpty() ? QUrl() : Find(topic);
    if (!page.isEmpty()) return page;
  }
  return Contents();
}

QUrl HelpPages::PageWith(const QString& text) const {
  const QDir folder(m_folder);
  for (const QString& page : folder.entryList({QStringLiteral("*.md"), QStringLiteral("*.html")}, QDir::Files)) {
    const QString path = folder.filePath(page);
    if (!text.isEmpty() && ReadAll(path).contains(text, Qt::CaseInsensitive)) return QUrl::fromLocalFile(path);
  }
  return Contents();
}

QString HeadingName(const QString& heading) {
  QString name;
  for (const QChar unit : heading.toLower()) {
    if (unit.isLetterOrNumber() || unit == '-' || unit == '_') name += unit;
    if (unit == ' ') name += '-';
  }
  return name;
}

} // namespace portico::qt
