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
  head.Runs.Truncate(head.Text.size());
  head.Runs.Append(std::move(tail.Runs));
  head.Text += tail.Text;
}

} // namespace

void RichTextLines::Load(FormattedText text) {
  m_ended.Clear();
  m_last = std::move(text.back());
  text.pop_back();
  for (FormattedLine& line : text) InsertEnded(m_ended.Count(), std::move(line));
}

RichTextLines::Place RichTextLines::PlaceOf(std::int64_t position) const {
  if (position == 0) return {0, 0};
  const bool isInLast = position >= m_ended.Total();
  const std::size_t line = isInLast ? m_ended.Count() : m_ended.FindSum(position);
  const auto offset = static_cast<std::size_t>(position - PositionOf({line, 0}));
  return {line, std::min(offset, (*this)[line].Text.size())};
}

std::int64_t RichTextLines::PositionOf(Place place) const {
  return (place.Line == 0 ? 0 : m_ended.SumBefore(place.Line)) + static_cast<std::int64_t>(place.Offset);
}

RichTextLines::Place RichTextLines::End() const { return {m_ended.Count(), m_last.Text.size()}; }

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
  copy.reserve(Count());
  for (std::size_t i = 0; i < Count(); ++i) copy.push_back((*this)[i]);
  return copy;
}

void RichTextLines::Replace(Place from, Place to, FormattedText text) {
  if (from.Line != to.Line || from.Offset != to.Offset) Delete(from, to);
  if (text.size() == 1 && text.front().Text.empty()) return;

  FormattedLine& held = Line(from.Line);
  FormattedLine rest = CutLine(held, from.Offset);
  const bool isWholeLine = text.size() > 1 || (held.Text.empty() && rest.Text.empty());
  if (isWholeLine) held.Paragraph = text.front().Paragraph;
  FormattedLine& last = text.back();
  if (last.Text.empty()) {
    last = std::move(rest);
  } else {
    JoinLines(last, std::move(rest));
  }
  held.Runs.Append(std::move(text.front().Runs));
  if (held.Text.empty()) {
    held.Text = std::move(text.front().Text);
  } else {
    held.Text += text.front().Text;
  }
  if (text.size() > 1) {
    // What stands behind stays where it is, and the lines that end come in front of it.
    InsertEnded(from.Line, std::exchange(held, std::move(last)));
    for (std::size_t i = 1; i + 1 < text.size(); ++i) InsertEnded(from.Line + i, std::move(text[i]));
  }
  Measure(from.Line + text.size() - 1);
}

void RichTextLines::ReplaceLines(std::size_t first, std::size_t count, FormattedText lines) {
  InsertEnded(m_ended.Count(), std::move(m_last)); // for as long as this takes it is one of them
  for (std::size_t i = 0; i < count; ++i) m_ended.Remove(first);
  for (std::size_t i = 0; i < lines.size(); ++i) InsertEnded(first + i, std::move(lines[i]));
  m_last = std::move(*m_ended.Remove(m_ended.Count() - 1));
}

void RichTextLines::Delete(Place from, Place to) {
  FormattedLine& rest = Line(to.Line);
  if (from.Offset == 0) {
    rest.Text.erase(0, to.Offset);
    rest.Runs = rest.Runs.Cut(to.Offset);
  } else {
    FormattedLine tail = CutLine(rest, to.Offset);
    if (from.Line < to.Line) rest = std::move(Line(from.Line));
    rest.Text.resize(from.Offset);
    JoinLines(rest, std::move(tail));
  }
  for (std::size_t line = from.Line; line < to.Line; ++line) m_ended.Remove(from.Line);
  Measure(from.Line);
}

void RichTextLines::InsertEnded(std::size_t at, FormattedLine line) {
  const std::int64_t length = UnitsOf(line) + LineEndLength;
  m_ended.Insert(at, std::make_unique<FormattedLine>(std::move(line)), length);
}

void RichTextLines::Measure(std::size_t line) {
  if (line < m_ended.Count()) m_ended.SetLength(line, UnitsOf(*m_ended[line]) + LineEndLength);
}

void RichTextLines::Transform(Place from, Place to, const SelectionFormat& changes) {
  for (std::size_t line = from.Line; line <= to.Line; ++line) {
    FormattedLine& held = Line(line);
    const std::size_t first = line == from.Line ? from.Offset : 0;
    const std::size_t end = line == to.Line ? to.Offset : held.Text.size() + 1;
    held.Runs.Transform(first, end - first, [&](CharacterFormat& format) { Apply(changes, format); });
  }
}

bool RichTextLines::TransformParagraphs(std::size_t first, std::size_t last, const SelectionFormat& changes) {
  bool isChange = false;
  for (std::size_t line = first; line <= last; ++line) {
    ParagraphFormat& held = Line(line).Paragraph;
    const ParagraphFormat before = held;
    Apply(changes, held);
    isChange |= held != before;
  }
  return isChange;
}

} // namespace portico::richtext
