#pragma once

#include <QIcon>

namespace portico::qt {

/// Makes the pictures known as ":/icons/KEY.svg". They lie in a static library, whose resources nobody registers by
/// themselves: a program calls this before it asks for one by that name. Further calls do nothing.
void InitIcons();

/// The picture of an image key (such as "Run2Cursor"; "portico" is the program's own), drawn anew at each size, so that
/// it is sharp at every scale. Disabled it is grey and pale, on whatever ground. An unknown key gives a null icon.
QIcon Icon(const QString& Key);

} // namespace portico::qt
