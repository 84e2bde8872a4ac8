#pragma once

#include "framework/containers/SummedSequence.h"
#include "richtext/FormattedText.h"

#include <memory>
#include <utility>

namespace portico::richtext {

/// The text of a rich text box. Positions count UTF-16 units, a line end as two. Finding a place and replacing text
/// there cost the logarithm of the count of lines and what is replaced, wherever it is.
class RichTextLines {
public:
  /// A line and a distance from its start, which is at most the length of its text.
  struct Place {
    std::size_t Line;
    std::size_t Offset;
  };

  explicit RichTextLines(FormattedText text) { Load(std::move(text)); }

  void Load(FormattedText text);

  std::size_t Count() const { return m_ended.Count() + 1; }
  std::int64_t Length() const { return m_ended.Total() + static_cast<std::int64_t>(m_last.Text.size()); }
  const FormattedLine& operator[](std::size_t line) const { return line == m_ended.Count() ? m_last : *m_ended[line]; }

  /// The position must not be negative. One inside a line end gives the place in front of the line end, one behind the
  /// text gives the end of the text.
  Place PlaceOf(std::int64_t position) const;
  std::int64_t PositionOf(Place place) const;
  Place End() const;

  String Text(Place from, Place to) const;
  /// The end of the copy has the look of the character in front of it.
  FormattedText Copy(Place from, Place to) const;
  FormattedText CopyAll() const;

  /// Puts `text` between two places. Every line that it ends, and the last one that it begins, gets the look that it
  /// says; a piece within a line leaves that line's look, unless it is all that there is of it. What stands behind `to`
  /// keeps its own look if nothing comes to stand in front of it in its line.
  void Replace(Place from, Place to, FormattedText text);

  /// Takes away what stands between two places.
  void Delete(Place from, Place to);

  /// Puts lines in place of others, as they are. At least one is left.
  void ReplaceLines(std::size_t first, std::size_t count, FormattedText lines);

  void Transform(Place from, Place to, const SelectionFormat& changes);
  /// Returns whether any of them looks different now.
  bool TransformParagraphs(std::size_t first, std::size_t last, const SelectionFormat& changes);

  /// `see(const FormattedLine&, offset, length)` for what lies in each line between two places, a line end counting as
  /// one place of its runs.
  template <class See>
  void Visit(Place from, Place to, See&& see) const {
    for (std::size_t line = from.Line; line <= to.Line; ++line) {
      const FormattedLine& held = (*this)[line];
      const std::size_t first = line == from.Line ? from.Offset : 0;
      const std::size_t end = line == to.Line ? to.Offset : held.Text.size() + 1;
      see(held, first, end - first);
    }
  }

private:
  using LinePointer = std::unique_ptr<FormattedLine>;

  FormattedLine& Line(std::size_t line) { return line == m_ended.Count() ? m_last : *m_ended[line]; }
  void InsertEnded(std::size_t at, FormattedLine line);
  /// The line's text has become longer or shorter.
  void Measure(std::size_t line);

  // Text is put in at its end more often than anywhere else, and taken off its start.
  SummedSequence<LinePointer> m_ended; // with their line ends
  FormattedLine m_last;
};

} // namespace portico::richtext
