#pragma once

#include "platform/Drawing.h"

#include <QColor>
#include <QPainter>
#include <QPalette>

namespace portico::qt {

/// The colours of inks on the ground of a palette, or on white paper.
class Inks {
public:
  Inks(); ///< on white
  explicit Inks(const QPalette& palette);

  QColor ColorOf(Ink ink) const;

private:
  QColor m_ground;
  QColor m_text;
  bool m_isDark;
};

/// Draws with the painter's font, a pixel of the drawing being one of the painter's.
void Paint(const Drawing& drawing, const Inks& inks, QPainter& painter);

} // namespace portico::qt
