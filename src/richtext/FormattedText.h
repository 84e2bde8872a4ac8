#pragma once

#include "richtext/Formatting.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace portico::richtext {

/// Places that follow one another and look the same.
struct FormatRun {
  std::size_t Length;
  CharacterFormat Format;

  bool operator==(const FormatRun&) const = default;
};

/// The looks of a row of places, counted from 0. No run is empty, and neighbours differ.
class FormatRuns {
public:
  FormatRuns() = default;
  FormatRuns(std::size_t length, const CharacterFormat& format) { Append(length, format); }

  void Append(std::size_t length, const CharacterFormat& format);
  void Append(FormatRuns tail);
  const CharacterFormat& At(std::size_t place) const;
  /// Takes the places from `place` on away and returns them.
  FormatRuns Cut(std::size_t place);
  /// Drops the places from `place` on.
  void Truncate(std::size_t place);
  FormatRuns Copy(std::size_t place, std::size_t length) const;
  /// `change(CharacterFormat&)` for every look from `place` on.
  template <class Change>
  void Transform(std::size_t place, std::size_t length, Change&& change) {
    FormatRuns middle = Cut(place);
    FormatRuns tail = middle.Cut(length);
    for (FormatRun& run : middle.m_runs) {
      change(run.Format);
      Append(run.Length, run.Format);
    }
    Append(std::move(tail));
  }
  /// `see(const CharacterFormat&, std::size_t length)` for every run, cut to the `length` places from `place` on.
  template <class See>
  void Visit(std::size_t place, std::size_t length, See&& see) const {
    for (const FormatRun& run : m_runs) {
      if (length == 0) break;
      if (place >= run.Length) {
        place -= run.Length;
        continue;
      }
      const std::size_t seen = std::min(length, run.Length - place);
      see(run.Format, seen);
      length -= seen;
      place = 0;
    }
  }

  const std::vector<FormatRun>& All() const { return m_runs; }
  bool operator==(const FormatRuns&) const = default;

private:
  std::vector<FormatRun> m_runs;
};

/// A paragraph. Its text holds neither CR nor LF. Its runs reach one place further than the text: that place is the
/// line end, or, in the last line of a text, the end of the text, whose look an empty line shows.
struct FormattedLine {
  String Text;
  FormatRuns Runs;
  ParagraphFormat Paragraph;

  bool operator==(const FormattedLine&) const = default;
};

/// Lines with a line end between each two. There is always at least one line.
using FormattedText = std::vector<FormattedLine>;

/// Lines in one look from a text in which CR LF, CR and LF each end a line.
FormattedText FormatPlain(StringView text, const Formatting& formatting);

/// Positions of a text that has its line ends as CR LF.
inline constexpr std::int64_t LineEndLength = static_cast<std::int64_t>(NewLine.size());
std::int64_t LengthOf(const FormattedText& text);

} // namespace portico::richtext
