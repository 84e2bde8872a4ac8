#include "richtext/RichTextModel.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "richtext/RichTextSearch.h"
#include "richtext/RtfReader.h"
#include "richtext/RtfWriter.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

namespace portico::richtext {

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

RichTextModel::RichTextModel(StringView fontName, double fontSize)
    : m_standard(StandardFormatting(fontName, fontSize)), m_lines(FormatPlain({}, m_standard)) {}

std::int32_t RichTextModel::SelStart() const { return Narrow(m_start); }

void RichTextModel::SelStart(std::int32_t position) {
  CheckPosition(position);
  Select(m_lines.PositionOf(m_lines.PlaceOf(std::min<std::int64_t>(position, m_lines.Length()))), 0);
}

std::int32_t RichTextModel::SelLength() const { return Narrow(m_length); }

void RichTextModel::SelLength(std::int32_t length) {
  CheckPosition(length);
  // One more than there is to select, so that one up and one down again leaves a selection that reaches the end.
  Select(m_start, std::min<std::int64_t>(length, m_lines.Length() - m_start + 1));
}

String RichTextModel::SelText() const { return m_lines.Text(From(), To()); }

std::int32_t RichTextModel::SelTextLength() const {
  return Narrow(m_lines.PositionOf(To()) - m_lines.PositionOf(From()));
}

void RichTextModel::SelText(StringView text) {
  text.empty() ? Delete() : Replace(FormatPlain(text, InsertionFormat()));
}

String RichTextModel::SelRTF() const {
  const Place from = From();
  const Place to = To();
  return WriteRtf(IsEmpty(from, to) ? FormatPlain({}, InsertionFormat()) : m_lines.Copy(from, to));
}

void RichTextModel::SelRTF(StringView fragment) {
  fragment.empty() ? Delete() : Replace(ReadRtf(fragment, InsertionFormat()));
}

void RichTextModel::SelFragment(const TextFragment& fragment) { Replace(ReadRtf(fragment, InsertionFormat())); }

SelectionFormat RichTextModel::SelFormat() const {
  SelectionFormat description = Describe(InsertionFormat());
  const Place from = From();
  const Place to = To();
  m_lines.Visit(from, to, [&](const FormattedLine& line, std::size_t first, std::size_t length) {
    line.Runs.Visit(first, length,
                    [&](const CharacterFormat& format, std::size_t /*length*/) { Mix(description, format); });
  });
  for (std::size_t line = from.Line; line <= LastTouched(from, to); ++line) Mix(description, m_lines[line].Paragraph);
  return description;
}

void RichTextModel::SelFormat(const SelectionFormat& changes) {
  CheckRanges(changes);
  const Place from = From();
  const Place to = To();
  if (SetsCharacters(changes)) {
    if (IsEmpty(from, to)) {
      if (!m_caretFormat) m_caretFormat = LookAt(from, true);
      Apply(changes, *m_caretFormat);
      OnSelection();
    } else {
      m_lines.Transform(from, to, changes);
      OnLines(from.Line, to.Line + 1 - from.Line, to.Line + 1 - from.Line);
    }
  }
  if (SetsParagraphs(changes)) {
    const std::size_t last = LastTouched(from, to);
    const std::size_t count = last + 1 - from.Line;
    if (m_lines.TransformParagraphs(from.Line, last, changes)) OnLines(from.Line, count, count);
  }
}

String RichTextModel::Text() const { return m_lines.Text({0, 0}, m_lines.End()); }

void RichTextModel::Text(StringView text) { Load(FormatPlain(text, InsertionFormat())); }

std::int32_t RichTextModel::TextLength() const { return Narrow(m_lines.Length()); }

String RichTextModel::TextRTF() const { return WriteRtf(m_lines.CopyAll()); }

void RichTextModel::TextRTF(StringView text) { Load(ReadRtf(text, m_standard)); }

std::int32_t RichTextModel::Find(StringView text, std::int32_t Start, std::int32_t End) {
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

void RichTextModel::Span(StringView CharacterSet) {
  const Place end = To();
  const Place passed = PassOver(m_lines, end, CharacterSet);
  if (!IsEmpty(end, passed)) Select(m_start, m_lines.PositionOf(passed) - m_start);
}

std::int32_t RichTextModel::GetLineFromChar(std::int32_t position) const {
  return static_cast<std::int32_t>(m_lines.PlaceOf(std::max(position, 0)).Line);
}

Formatting RichTextModel::InsertionFormat() const {
  const Place from = From();
  return {m_caretFormat ? *m_caretFormat : LookAt(from, IsEmpty(from, To())), m_lines[from.Line].Paragraph};
}

const CharacterFormat& RichTextModel::LookAt(Place place, bool isCaret) const {
  return m_lines[place.Line].Runs.At(isCaret && place.Offset > 0 ? place.Offset - 1 : place.Offset);
}

void RichTextModel::Select(std::int64_t start, std::int64_t length) {
  m_start = start;
  m_length = length;
  m_caretFormat.reset();
  OnSelection();
}

void RichTextModel::Delete() {
  const Place from = From();
  const Place to = To();
  if (IsEmpty(from, to)) return;
  m_lines.Delete(from, to);
  MoveMarks(from, to, 1);
  OnLines(from.Line, to.Line + 1 - from.Line, 1);
  Select(m_start, 0);
  Changed();
}

void RichTextModel::Changed() {
  if (m_isChangeHeld) {
    m_awaitsChange = true;
  } else {
    m_change();
  }
}

void RichTextModel::EditAtOnce(const std::function<void()>& edit, const std::function<void()>& then) {
  struct Hold {
    explicit Hold(bool& isHeld) : IsHeld(isHeld) { IsHeld = true; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() { IsHeld = false; }
    bool& IsHeld;
  };
  std::exception_ptr failure; // what has been changed by then is shown and told all the same
  {
    const Hold hold(m_isChangeHeld);
    try {
      edit();
    } catch (...) {
      failure = std::current_exception();
    }
    then();
  }
  if (std::exchange(m_awaitsChange, false)) m_change();
  if (failure) std::rethrow_exception(failure);
}

bool RichTextModel::Put(FormattedText text) {
  const Place from = From();
  const Place to = To();
  const std::int64_t length = LengthOf(text);
  const std::int64_t removed = m_lines.PositionOf(to) - m_start;
  if (removed == 0 && length == 0) return false; // the caret keeps its look
  CheckLength(m_lines.Length() - removed + length);
  const std::size_t lines = text.size();
  m_lines.Replace(from, to, std::move(text));
  MoveMarks(from, to, lines);
  OnLines(from.Line, to.Line + 1 - from.Line, lines);
  Select(m_start + length, 0);
  return true;
}

bool RichTextModel::TakeLines(std::size_t first, std::size_t count, FormattedText lines) {
  bool isChange = count != lines.size();
  for (std::size_t i = 0; i < count && !isChange; ++i) isChange = m_lines[first + i].Text != lines[i].Text;
  const std::size_t kept = std::min(count, lines.size());
  if (m_marks.Replace(first + kept, count - kept, lines.size() - kept)) OnMarks();
  m_lines.ReplaceLines(first, count, std::move(lines));
  return isChange;
}

void RichTextModel::Load(FormattedText text) {
  const std::int64_t length = LengthOf(text);
  CheckLength(length);
  const bool isChange = m_lines.Length() > 0 || length > 0;
  const std::size_t before = m_lines.Count();
  m_lines.Load(std::move(text));
  ClearMarks();
  OnLines(0, before, m_lines.Count());
  Select(0, 0);
  if (isChange) Changed();
}

void RichTextModel::MarkLine(std::int32_t position) {
  if (m_marks.Add(m_lines.PlaceOf(std::max(position, 0)).Line)) OnMarks();
}

void RichTextModel::ClearMarks() {
  if (m_marks.Clear()) OnMarks();
}

std::vector<std::int32_t> RichTextModel::MarkedLines() const {
  std::vector<std::int32_t> lines;
  lines.reserve(m_marks.All().size());
  for (const std::size_t line : m_marks.All()) lines.push_back(static_cast<std::int32_t>(line));
  return lines;
}

void RichTextModel::GoToLine(std::int32_t line) {
  const auto number = std::min(static_cast<std::size_t>(std::max(line, 0)), m_lines.Count() - 1);
  Select(m_lines.PositionOf({number, 0}), static_cast<std::int64_t>(m_lines[number].Text.size()));
}

void RichTextModel::ShowNotes(const Ref<ILineNotes>& notes) {
  m_notes = notes;
  OnMarks();
}

void RichTextModel::MoveMarks(Place from, Place to, std::size_t lines) {
  const std::size_t first = from.Offset == 0 ? from.Line : from.Line + 1; // what stays of a line keeps its mark
  const bool isMoved = m_marks.Replace(first, to.Line - from.Line, lines - 1);
  const bool isEmptied = m_lines.Length() == 0 && m_marks.Clear();
  if (isMoved || isEmptied) OnMarks();
}

} // namespace portico::richtext
