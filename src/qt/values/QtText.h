#pragma once

#include "framework/text/text.h"

#include <QString>

namespace portico::qt {

/// The same UTF-16 units in the toolkit's class, and back.
inline QString ToQt(StringView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}
inline String FromQt(const QString& text) { return text.toStdU16String(); }

inline bool IsSame(const QString& shown, StringView text) { return QStringView(shown) == QStringView(text); }

/// What a screen reader says for a caption: the caption without the mark of its mnemonic.
QString Spoken(const String& caption);

} // namespace portico::qt
