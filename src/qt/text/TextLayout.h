#pragma once

#include <QPlainTextDocumentLayout>

namespace portico::qt {

/// Lays lines out without wrapping, each at its paragraph's indent, and not before it is seen.
class TextLayout final : public QPlainTextDocumentLayout {
public:
  using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

  /// The factor that indents are enlarged by.
  void Zoom(double factor) { m_zoom = factor; }

  QRectF blockBoundingRect(const QTextBlock& block) const override;
  /// As wide as the widest line that has been seen; the height counts lines.
  QSizeF documentSize() const override;

protected:
  void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
  void LayOut(const QTextBlock& block);
  double StartOf(const QTextBlock& block) const;
  void Widen(double width);

  double m_zoom = 1;
  double m_width = 0;
  int m_blockCount = 1;
};

} // namespace portico::qt
