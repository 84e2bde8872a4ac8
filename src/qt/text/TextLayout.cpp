#include "qt/text/TextLayout.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace portico::qt {
namespace {

// Wider than any line; the toolkit measures in 64ths of a pixel with 32 bits.
constexpr double Unlimited = 1 << 24;
constexpr double Everything = 1e9;

} // namespace

QRectF TextLayout::blockBoundingRect(const QTextBlock& block) const {
  if (!block.isValid()) return {};
  // Lines are laid out when somebody asks, whom the toolkit lets ask a constant.
  if (block.layout()->lineCount() == 0) const_cast<TextLayout*>(this)->LayOut(block); // NOLINT
  const QTextLayout& layout = *block.layout();
  const double margin = document()->documentMargin();
  double right = 0;
  double bottom = 0;
  for (int i = 0; i < layout.lineCount(); ++i) {
    const QTextLine line = layout.lineAt(i);
    right = std::max(right, line.x() + line.naturalTextWidth());
    bottom = line.y() + line.height();
  }
  if (!block.next().isValid()) bottom += margin;
  return {0, 0, right + margin, bottom};
}

QSizeF TextLayout::documentSize() const { return {m_width, static_cast<double>(document()->lineCount())}; }

double TextLayout::StartOf(const QTextBlock& block) const {
  const QTextBlockFormat format = block.blockFormat();
  return document()->documentMargin() + m_zoom * std::max(0.0, format.leftMargin() + format.textIndent());
}

void TextLayout::LayOut(const QTextBlock& block) {
  QTextLayout& layout = *block.layout();
  layout.setTextOption(document()->defaultTextOption());
  const double left = StartOf(block);
  double height = 0;
  double right = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLeadingIncluded(true);
    line.setLineWidth(Unlimited);
    line.setPosition({left, height});
    height += line.height();
    if (line.leading() < 0) height += std::ceil(line.leading());
    right = std::max(right, left + line.naturalTextWidth());
  }
  layout.endLayout();
  const int before = document()->lineCount();
  QTextBlock(block).setLineCount(layout.lineCount());
  Widen(right + document()->documentMargin());
  if (document()->lineCount() != before) emit documentSizeChanged(documentSize());
}

void TextLayout::Widen(double width) {
  if (width <= m_width) return;
  m_width = width;
  emit documentSizeChanged(documentSize());
}

void TextLayout::documentChanged(int from, int charsRemoved, int charsAdded) {
  const QTextDocument& text = *document();
  const QTextBlock first = text.findBlock(from);
  QTextBlock last = text.findBlock(from + std::max(0, charsAdded + charsRemoved - 1));
  if (!last.isValid()) last = text.lastBlock();
  const bool isOneLine = first == last && text.blockCount() == m_blockCount;
  const double oldHeight = isOneLine ? blockBoundingRect(first).height() : 0;
  for (QTextBlock block = first; block.isValid(); block = block.next()) {
    block.clearLayout();
    if (block.lineCount() != 1) block.setLineCount(1); // it costs a walk through the document's tree
    if (block == last) break;
  }
  const bool isAll = first == text.firstBlock() && last == text.lastBlock();
  if (isAll) m_width = 0;
  if (isAll || text.blockCount() != m_blockCount) {
    m_blockCount = text.blockCount();
    emit documentSizeChanged(documentSize());
  }
  if (isOneLine && blockBoundingRect(first).height() == oldHeight) {
    emit updateBlock(first);
  } else {
    emit update(QRectF(0, -text.documentMargin(), Everything, Everything));
  }
}

} // namespace portico::qt
