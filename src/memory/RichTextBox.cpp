#include "memory/RichTextBox.h"

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"
#include "memory/RichTextSearch.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <algorithm>
#include <limits>

namespace portico::memory {

using richtext::CharacterFormat;
using richtext::FormattedLine;
using richtext::FormattedText;
using richtext::Formatting;

namespace {

// Lengths are checked when text comes in.
std::int32_t Narrow(std::int64_t position) { return static_cast<std::int32_t>(position); }

void CheckPosition(std::int32_t position) {
  if (position < 0) HuntERR::RaiseStandard(ErrorNumber::BadPropertyValue);
}

void CheckLength(std::int64_t length) {
  if (length > std::numeric_limits<std::int32_t>::max()) HuntERR::RaiseStandard(ErrorNumber::OutOfMemory);
}

bool IsEmpty(const RichTextLines::Place& from, const RichTextLines::Place& to) {
  return from.Line == to.Line && from.Offset == to.Offset;
}

/// The last line that a selection touches; not the one that it ends in front of.
std::size_t LastTouched(const RichTextLines::Place& from, const RichTextLines::Place& to) {
  return to.Offset == 0 && to.Line > from.Line ? to.Line - 1 : to.Line;
}

} // namespace

RichTextBox::RichTextBox(StringView fontName, double fontSize)
    : m_standard(richtext::StandardFormatting(fontName, fontSize)), m_lines(richtext::FormatPlain({}, m_standard)) {}

std::int32_t RichTextBox::SelStart() const { return Narrow(m_start); }

void RichTextBox::SelStart(std::int32_t position) {
  CheckPosition(position);
  Select(m_lines.PositionOf(m_lines.PlaceOf(std::min<std::int64_t>(position, m_lines.Length()))), 0);
}

std::int32_t RichTextBox::SelLength() const { return Narrow(m_length); }

void RichTextBox::SelLength(std::int32_t length) {
  CheckPosition(length);
  // One more than there is to select, so that one up and one down again leaves a selection that reaches the end.
  Select(m_start, std::min<std::int64_t>(length, m_lines.Length() - m_start + 1));
}

String RichTextBox::SelText() const { return m_lines.Text(From(), To()); }

void RichTextBox::SelText(StringView text) { Replace(richtext::FormatPlain(text, InsertionFormat())); }

String RichTextBox::SelRTF() const {
  const Place from = From();
  const Place to = To();
  return WriteRtf(IsEmpty(from, to) ? richtext::FormatPlain({}, InsertionFormat()) : m_lines.Copy(from, to));
}

void RichTextBox::SelRTF(StringView fragment) { Replace(richtext::ReadRtf(fragment, InsertionFormat())); }

SelectionFormat RichTextBox::SelFormat() const {
  SelectionFormat description = Describe(InsertionFormat());
  const Place from = From();
  const Place to = To();
  m_lines.Visit(from, to, [&](const FormattedLine& line, std::size_t first, std::size_t length) {
    line.Runs.Visit(first, length, [&](const CharacterFormat& format) { Mix(description, format); });
  });
  for (std::size_t line = from.Line; line <= LastTouched(from, to); ++line) Mix(description, m_lines[line].Paragraph);
  return description;
}

void RichTextBox::SelFormat(const SelectionFormat& changes) {
  richtext::CheckRanges(changes);
  const Place from = From();
  const Place to = To();
  if (richtext::SetsCharacters(changes)) {
    if (IsEmpty(from, to)) {
      m_caretFormat = InsertionFormat().Character;
      Apply(changes, *m_caretFormat);
    } else {
      m_lines.Transform(from, to, changes);
    }
  }
  if (richtext::SetsParagraphs(changes)) m_lines.TransformParagraphs(from.Line, LastTouched(from, to), changes);
}

String RichTextBox::Text() const { return m_lines.Text({0, 0}, m_lines.End()); }

void RichTextBox::Text(StringView text) { Load(richtext::FormatPlain(text, InsertionFormat())); }

std::int32_t RichTextBox::TextLength() const { return Narrow(m_lines.Length()); }

String RichTextBox::TextRTF() const { return WriteRtf(m_lines.CopyAll()); }

void RichTextBox::TextRTF(StringView text) { Load(richtext::ReadRtf(text, m_standard)); }

std::int32_t RichTextBox::Find(StringView text, std::int32_t Start, std::int32_t End) {
  const std::int64_t start = std::max(Start, 0);
  const std::int64_t end = End < 0 ? m_lines.Length() : End;
  const auto length = static_cast<std::int64_t>(text.size());
  if (text.empty() || start + length > std::min(end, m_lines.Length())) return -1;
  Place from = m_lines.PlaceOf(start);
  if (m_lines.PositionOf(from) < start) from = {from.Line + 1, 0}; // a match cannot begin inside a line end
  const auto found = FindText(m_lines, from, m_lines.PlaceOf(end).Line, text);
  if (!found || m_lines.PositionOf(*found) + length > end) return -1;
  Select(m_lines.PositionOf(*found), length);
  return SelStart();
}

void RichTextBox::Span(StringView CharacterSet) {
  const Place end = To();
  const Place passed = PassOver(m_lines, end, CharacterSet);
  if (!IsEmpty(end, passed)) Select(m_start, m_lines.PositionOf(passed) - m_start);
}

std::int32_t RichTextBox::GetLineFromChar(std::int32_t position) const {
  return static_cast<std::int32_t>(m_lines.PlaceOf(std::max(position, 0)).Line);
}

Formatting RichTextBox::InsertionFormat() const {
  const Place from = From();
  const FormattedLine& line = m_lines[from.Line];
  if (m_caretFormat) return {*m_caretFormat, line.Paragraph};
  const bool isCaret = IsEmpty(from, To());
  return {line.Runs.At(isCaret && from.Offset > 0 ? from.Offset - 1 : from.Offset), line.Paragraph};
}

void RichTextBox::Select(std::int64_t start, std::int64_t length) {
  m_start = start;
  m_length = length;
  m_caretFormat.reset();
}

void RichTextBox::Replace(FormattedText text) {
  const Place from = From();
  const Place to = To();
  const std::int64_t length = LengthOf(text);
  const std::int64_t removed = m_lines.PositionOf(to) - m_start;
  CheckLength(m_lines.Length() - removed + length);
  m_lines.Replace(from, to, std::move(text));
  if (removed == 0 && length == 0) return; // the caret keeps its look
  Select(m_start + length, 0);
  m_change();
}

void RichTextBox::Load(FormattedText text) {
  const std::int64_t length = LengthOf(text);
  CheckLength(length);
  const bool isChange = m_lines.Length() > 0 || length > 0;
  m_lines.Load(std::move(text));
  Select(0, 0);
  if (isChange) m_change();
}

} // namespace portico::memory
