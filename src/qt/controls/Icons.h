#pragma once

#include "framework/text/text.h"

#include <QIcon>

namespace portico::qt {

/// The picture of an image key (such as "Run2Cursor"; "portico" is the program's own), drawn anew at each size, so that
/// it is sharp at every scale. Disabled it is grey and pale, on whatever ground. An unknown key gives a null icon.
QIcon Icon(const QString& key);
/// The same; an unknown key gives its first letter in a box.
QIcon IconOf(StringView key);
/// The size that the picture was drawn for; empty if there is none.
QSize IconSizeOf(StringView key);

} // namespace portico::qt
