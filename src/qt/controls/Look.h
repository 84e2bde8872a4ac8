#pragma once

#include <cstdint>

#include <QColor>
#include <QCursor>
#include <QIcon>
#include <QPalette>

#include "framework/text/text.h"

namespace portico::qt {

/// The pointer of a number from 1 to 15; one that there is none for raises 380. 0 has no pointer of its own.
QCursor PointerShape(std::int32_t shape);

/// The colour of a number: 0x00BBGGRR, or a system's colour as the palette has it.
QColor ColorOf(std::int32_t number, const QPalette& palette);

/// The picture of a key among the program's resources. A key without one gives its first letter in a box.
QIcon IconOf(StringView key);
/// The size that the picture was drawn for; empty if there is none.
QSize IconSizeOf(StringView key);

/// What a screen reader says for a caption: it without the mark of its mnemonic.
QString Spoken(const String& caption);

} // namespace portico::qt
