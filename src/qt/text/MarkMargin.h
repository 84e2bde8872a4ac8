#pragma once

#include "richtext/MarkedLines.h"

#include <QObject>
#include <QPainter>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>

namespace portico::qt {

class TextView;

/// The text whose marks a margin shows.
class IMarkedText {
public:
  virtual ~IMarkedText() = default;

  virtual const richtext::MarkedLines& Marks() const = 0;
  virtual std::size_t LineCount() const = 0;
  /// The line that a block of the document shows; none for one that stands for lines to come.
  virtual std::optional<std::size_t> LineOf(int block) const = 0;
};

/// The marks of a view: a strip at its left edge with a triangle for each marked line in sight, and beside its scroll
/// bar an overview of all lines. Both are there while a line is marked, on a light ground as the text is. It belongs to
/// its view. Painting costs what there is to see, however long the text is.
class MarkMargin final : public QObject {
public:
  MarkMargin(TextView& view, const IMarkedText& text);

  /// The text goes, and its marks with it.
  void LetGo();
  /// The marks have changed.
  void Show();

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  /// A widget that nobody can give the focus to.
  class Canvas final : public QWidget {
  public:
    Canvas(TextView& view, const char* name);
    std::function<void(QPainter&)> Paint;
    std::function<void(int y)> Press;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
  };

  bool HasMarks() const { return m_text != nullptr && !m_text->Marks().All().empty(); }
  void Place();
  void PaintStrip(QPainter& painter) const;
  void PaintOverview(QPainter& painter) const;
  /// The mark that is nearest comes into sight.
  void ScrollTo(int y) const;

  TextView& m_view;
  const IMarkedText* m_text;
  Canvas& m_strip;
  Canvas& m_overview;
  bool m_isShown = false;
};

} // namespace portico::qt
