#pragma once

#include <QColor>
#include <QPalette>

#include <cstdint>

namespace portico::qt {

/// The colour of a number 0x00BBGGRR.
QColor ColorOf(std::int32_t number);
/// The same, or one of the system's colours as the palette has it.
QColor ColorOf(std::int32_t number, const QPalette& palette);

} // namespace portico::qt
