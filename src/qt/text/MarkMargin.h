#pragma once

#include "platform/ILineNotes.h"
#include "richtext/MarkedLines.h"

#include <QObject>
#include <QPainter>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace portico::qt {

class TextView;

/// The text whose marks and notes a margin shows.
class IMarkedText {
public:
  virtual ~IMarkedText() = default;

  virtual const richtext::MarkedLines& Marks() const = 0;
  virtual std::size_t LineCount() const = 0;
  /// The line that a block of the document shows; none for one that stands for lines to come.
  virtual std::optional<std::size_t> LineOf(int block) const = 0;
  /// Null for none.
  virtual Ref<ILineNotes> LineNotes() const = 0;
};

/// The marks of a view: a strip at its left edge with a triangle for each marked line in sight, and beside its scroll
/// bar an overview of all lines. Both are there while a line is marked, on a light ground as the text is. In front of
/// the triangles the strip shows the notes of the lines in sight, in columns. It belongs to its view. Painting costs
/// what there is to see, however long the text is.
class MarkMargin final : public QObject {
public:
  MarkMargin(TextView& view, const IMarkedText& text);

  /// The text goes, and its marks and notes with it.
  void LetGo();
  /// The marks or the notes have changed.
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
    std::function<QString(int y)> Tip;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
  };

  bool HasMarks() const { return m_text != nullptr && !m_text->Marks().All().empty(); }
  Ref<ILineNotes> Notes() const { return m_text == nullptr ? Ref<ILineNotes>() : m_text->LineNotes(); }
  /// Takes over how wide the columns of the notes are.
  void MeasureNotes();
  /// Marks and notes, in words, with the note of the caret's line.
  void Describe();
  int StripWidth() const;
  void Place();
  void PaintStrip(QPainter& painter) const;
  void PaintNote(QPainter& painter, const LineNote& note, double top, double height) const;
  QString TipAt(int y) const;
  void PaintOverview(QPainter& painter) const;
  /// The mark that is nearest comes into sight.
  void ScrollTo(int y) const;

  TextView& m_view;
  const IMarkedText* m_text;
  Canvas& m_strip;
  Canvas& m_overview;
  std::vector<int> m_columns; // widths of the notes' columns
  int m_notesWidth = 0;
  std::pair<int, int> m_room{0, 0}; // beside the text, as it was made last
};

} // namespace portico::qt
