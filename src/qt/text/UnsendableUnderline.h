#pragma once

#include <QPointF>

class QPainter;
class QTextBlock;

namespace portico::qt {

/// Draws a wave under each character of a block that the instrument's code page lacks. `origin` is the corner of the
/// block as it is painted. The block's text and formats stay as they are.
void UnderlineUnsendable(QPainter& painter, const QTextBlock& block, QPointF origin);

} // namespace portico::qt
