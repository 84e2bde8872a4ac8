#include "richtext/RichTextLines.h"

#include <algorithm>
#include <utility>

namespace portico::richtext {

namespace {

std::int64_t UnitsOf(const FormattedLine& line) { return static_cast<std::int64_t>(line.Text.size()); }

/// Takes what stands from `offset` on away and returns it; it keeps the look of the line.
FormattedLine CutLine(FormattedLine& line, std::size_t offset) {
  FormattedLine tail{line.Text.substr(offset), line.Runs.Cut(offset), line.Paragraph};
  line.Text.resize(offset);
  return tail;
}

/// Puts `tail` behind the text of `head`, whose end is given up.
void JoinLines(FormattedLine& head, FormattedLine tail) {
  head.Runs.Cut(head.Text.size());
  head.Runs.Append(std::move(tail.Runs));
  head.Text += tail.Text;
}

} // namespace

void RichTextLines::Load(FormattedText text) {
  m_lines.Clear();
  for (FormattedLine& line : text) Insert(m_lines.Count(), std::move(line));
  Measure(m_lines.Count() - 1);
}

// The start of the text, where a run takes its lines from, needs no search.
RichTextLines::Place RichTextLines::PlaceOf(std::int64_t position) const {
  if (position == 0) return {0, 0};
  const std::size_t line = std::min(m_lines.FindSum(position), Count() - 1);
  const auto offset = static_cast<std::size_t>(position - m_lines.SumBefore(line));
  return {line, std::min(offset, m_lines[line]->Text.size())};
}

std::int64_t RichTextLines::PositionOf(Place place) const {
  return (place.Line == 0 ? 0 : m_lines.SumBefore(place.Line)) + static_cast<std::int64_t>(place.Offset);
}

RichTextLines::Place RichTextLines::End() const { return {Count() - 1, m_lines[Count() - 1]->Text.size()}; }

String RichTextLines::Text(Place from, Place to) const {
  String text;
  text.reserve(static_cast<std::size_t>(PositionOf(to) - PositionOf(from)));
  Visit(from, to, [&](const FormattedLine& line, std::size_t first, std::size_t length) {
    text.append(line.Text, first, length);
    if (first + length > line.Text.size()) text += NewLine;
  });
  return text;
}

FormattedText RichTextLines::Copy(Place from, Place to) const {
  FormattedText copy;
  Visit(from, to, [&](const FormattedLine& line, std::size_t first, std::size_t length) {
    const bool isEmptyEnd = length == 0 && !copy.empty();
    copy.push_back({line.Text.substr(first, length), line.Runs.Copy(first, length),
                    isEmptyEnd ? copy.back().Paragraph : line.Paragraph});
  });
  const bool isAfterLineEnd = to.Offset == 0 && copy.size() > 1;
  const FormattedLine& before = isAfterLineEnd ? copy[copy.size() - 2] : copy.back();
  copy.back().Runs.Append(1, before.Runs.All().back().Format);
  return copy;
}

FormattedText RichTextLines::CopyAll() const {
  FormattedText copy;
  for (std::size_t i = 0; i < Count(); ++i) copy.push_back(*m_lines[i]);
  return copy;
}

void RichTextLines::Replace(Place from, Place to, FormattedText text) {
  if (from.Line != to.Line || from.Offset != to.Offset) Delete(from, to);
  if (text.size() == 1 && text.front().Text.empty()) return;

  FormattedLine& first = *m_lines[from.Line];
  FormattedLine rest = CutLine(first, from.Offset);
  const bool isWholeLine = text.size() > 1 || (first.Text.empty() && rest.Text.empty());
  if (isWholeLine) first.Paragraph = text.front().Paragraph;
  FormattedLine& last = text.back();
  if (last.Text.empty()) {
    last = std::move(rest);
  } else {
    JoinLines(last, std::move(rest));
  }
  first.Runs.Append(std::move(text.front().Runs));
  first.Text += text.front().Text;
  for (std::size_t i = 1; i < text.size(); ++i) Insert(from.Line + i, std::move(text[i]));
  Measure(from.Line);
  Measure(from.Line + text.size() - 1);
}

void RichTextLines::ReplaceLines(std::size_t first, std::size_t count, FormattedText lines) {
  for (std::size_t i = 0; i < lines.size(); ++i) Insert(first + i, std::move(lines[i]));
  for (std::size_t i = 0; i < count; ++i) m_lines.Remove(first + lines.size());
  Measure(Count() - 1);
}

void RichTextLines::Delete(Place from, Place to) {
  if (from.Offset == 0) {
    for (std::size_t line = from.Line; line < to.Line; ++line) m_lines.Remove(from.Line);
    FormattedLine& rest = *m_lines[from.Line];
    rest.Text.erase(0, to.Offset);
    rest.Runs = rest.Runs.Cut(to.Offset);
  } else {
    FormattedLine rest = CutLine(*m_lines[to.Line], to.Offset);
    for (std::size_t line = from.Line; line < to.Line; ++line) m_lines.Remove(from.Line + 1);
    FormattedLine& first = *m_lines[from.Line];
    first.Text.resize(from.Offset);
    JoinLines(first, std::move(rest));
  }
  Measure(from.Line);
}

void RichTextLines::Insert(std::size_t at, FormattedLine line) {
  const std::int64_t length = UnitsOf(line) + LineEndLength;
  m_lines.Insert(at, std::make_unique<FormattedLine>(std::move(line)), length);
}

void RichTextLines::Measure(std::size_t line) {
  m_lines.SetLength(line, UnitsOf(*m_lines[line]) + (line + 1 == Count() ? 0 : LineEndLength));
}

void RichTextLines::Transform(Place from, Place to, const SelectionFormat& changes) {
  for (std::size_t line = from.Line; line <= to.Line; ++line) {
    FormattedLine& held = *m_lines[line];
    const std::size_t first = line == from.Line ? from.Offset : 0;
    const std::size_t end = line == to.Line ? to.Offset : held.Text.size() + 1;
    held.Runs.Transform(first, end - first, [&](CharacterFormat& format) { Apply(changes, format); });
  }
}

void RichTextLines::TransformParagraphs(std::size_t first, std::size_t last, const SelectionFormat& changes) {
  for (std::size_t line = first; line <= last; ++line) Apply(changes, m_lines[line]->Paragraph);
}

} // namespace portico::richtext
