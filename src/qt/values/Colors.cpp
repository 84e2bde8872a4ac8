#include "qt/values/Colors.h"

#include "platform/SystemColors.h"

namespace portico::qt {

QColor ColorOf(std::int32_t number) { return {number & 0xFF, (number >> 8) & 0xFF, (number >> 16) & 0xFF}; }

QColor ColorOf(std::int32_t number, const QPalette& palette) {
  if (number == SystemWindowText) return palette.color(QPalette::WindowText);
  if (number == SystemButtonFace) return palette.color(QPalette::Button);
  return ColorOf(number);
}

} // namespace portico::qt
