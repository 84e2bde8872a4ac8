#pragma once

#include "framework/text/text.h"

#include <QString>
#include <QUrl>

#include <utility>

namespace portico::qt {

/// A folder of help pages. A file in it, "topics.txt", has a line for each topic: its name, a blank, and a page with or
/// without a heading, such as "frmOptions.SCPI options.md#scpi". A line that begins with '#' says nothing. The topic
/// "contents" is the manual as a whole.
class HelpPages {
public:
  explicit HelpPages(QString folder) : m_folder(std::move(folder)) {}

  bool Exists() const;
  QUrl Contents() const;
  /// The page that a macro of the form "AL(`NAME',1)" asks for. A name that is no topic counts without what stands
  /// behind its last dot, and then as the contents.
  QUrl TopicOf(StringView macro) const;
  /// The first page with a text, without regard to case; the contents if there is none.
  QUrl PageWith(const QString& text) const;

private:
  QUrl Find(const QString& topic) const;

  QString m_folder;
};

/// The name that a link has for a heading: small letters, blanks as '-', without marks.
QString HeadingName(const QString& heading);

} // namespace portico::qt
