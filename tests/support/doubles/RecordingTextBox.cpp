#include "support/doubles/RecordingTextBox.h"

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"

#include <algorithm>

namespace portico::test {

StringView RecordingTextBox::ClassName() const { return u"RecordingTextBox"; }

String RecordingTextBox::Contents() const { return Units(0, m_cells.size()); }

SelectionFormat RecordingTextBox::FormatAt(std::size_t position) const { return m_cells.at(position).Format; }

void RecordingTextBox::Type(StringView text, const SelectionFormat& changes) {
  SelectionFormat format = Formats::Standard();
  Formats::Apply(format, changes);
  for (const char16_t unit : text) m_cells.push_back({unit, format});
  m_change();
}

void RecordingTextBox::PlaceCaret(std::size_t position) {
  Select(position, 0);
  FormatCaret();
}

void RecordingTextBox::Select(std::size_t start, std::size_t length) {
  m_start = start;
  m_length = length;
}

std::int32_t RecordingTextBox::SelStart() const { return Note("get SelStart"), static_cast<std::int32_t>(m_start); }

void RecordingTextBox::SelStart(std::int32_t position) {
  Note("SelStart " + std::to_string(position));
  HuntERR::Check(position >= 0, ErrorNumber::BadPropertyValue, u"SelStart");
  PlaceCaret(std::min(static_cast<std::size_t>(position), m_cells.size()));
}

std::int32_t RecordingTextBox::SelLength() const { return Note("get SelLength"), static_cast<std::int32_t>(m_length); }

void RecordingTextBox::SelLength(std::int32_t length) {
  Note("SelLength " + std::to_string(length));
  HuntERR::Check(length >= 0, ErrorNumber::BadPropertyValue, u"SelLength");
  m_length = std::min(static_cast<std::size_t>(length), m_cells.size() - m_start + 1); // the end counts as one
}

String RecordingTextBox::SelText() const { return Note("get SelText"), Units(m_start, Selected()); }

std::int32_t RecordingTextBox::SelTextLength() const {
  return Note("get SelTextLength"), static_cast<std::int32_t>(Selected());
}

void RecordingTextBox::SelText(StringView text) {
  Note("SelText " + Escaped(text));
  const SelectionFormat format = StartFormat();
  Replace(Rtf::Formatted(text, format));
}

String RecordingTextBox::SelRTF() const {
  Note("get SelRTF");
  return Rtf::Remember({m_cells.begin() + Offset(m_start), m_cells.begin() + Offset(m_start + Selected())});
}

void RecordingTextBox::SelRTF(StringView fragment) {
  Note("SelRTF " + Escaped(fragment));
  Replace(Rtf::Read(fragment, StartFormat()));
}

SelectionFormat RecordingTextBox::SelFormat() const {
  Note("get SelFormat");
  if (Selected() == 0) return m_caret;
  SelectionFormat common = m_cells[m_start].Format;
  for (std::size_t i = m_start; i < m_start + Selected(); ++i) Formats::Intersect(common, m_cells[i].Format);
  return common;
}

void RecordingTextBox::SelFormat(const SelectionFormat& changes) {
  Note("SelFormat " + FormatText(changes));
  if (Selected() == 0) Formats::Apply(m_caret, changes);
  for (std::size_t i = m_start; i < m_start + Selected(); ++i) Formats::Apply(m_cells[i].Format, changes);
}

String RecordingTextBox::Text() const { return Note("get Text"), Contents(); }

void RecordingTextBox::Text(StringView text) {
  Note("Text " + Escaped(text));
  ReplaceAllBy(Rtf::Formatted(text, StartFormat()));
}

std::int32_t RecordingTextBox::TextLength() const {
  return Note("get TextLength"), static_cast<std::int32_t>(m_cells.size());
}

String RecordingTextBox::TextRTF() const { return Note("get TextRTF"), Rtf::Remember(m_cells); }

void RecordingTextBox::TextRTF(StringView text) {
  Note("TextRTF " + Escaped(text));
  m_caret = Formats::Standard();
  ReplaceAllBy(Rtf::Read(text, m_caret));
  FormatCaret();
}

std::int32_t RecordingTextBox::Find(StringView text, std::int32_t Start, std::int32_t End) {
  Note("Find " + Escaped(text) + " " + std::to_string(Start) + (End < 0 ? "" : " " + std::to_string(End)));
  const auto found = Contents().substr(0, End < 0 ? String::npos : std::size_t(End)).find(text, std::size_t(Start));
  if (found == String::npos) return -1;
  Select(found, text.size());
  return static_cast<std::int32_t>(found);
}

void RecordingTextBox::Span(StringView CharacterSet) {
  Note("Span " + Escaped(CharacterSet));
  while (m_start + m_length < m_cells.size() &&
         CharacterSet.find(m_cells[m_start + m_length].Unit) != StringView::npos) {
    ++m_length;
  }
}

std::int32_t RecordingTextBox::GetLineFromChar(std::int32_t position) const {
  Note("GetLineFromChar " + std::to_string(position));
  const String before = Units(0, std::min(std::size_t(position), m_cells.size()));
  return static_cast<std::int32_t>(std::count(before.begin(), before.end(), u'\n'));
}

void RecordingTextBox::SetFocus() { Note("SetFocus"); }

Event<>& RecordingTextBox::Change() { return m_change; }

std::ptrdiff_t RecordingTextBox::Offset(std::size_t position) { return static_cast<std::ptrdiff_t>(position); }

std::size_t RecordingTextBox::Selected() const { return std::min(m_length, m_cells.size() - m_start); }

String RecordingTextBox::Units(std::size_t from, std::size_t count) const { return UnitsOf(m_cells, from, count); }

SelectionFormat RecordingTextBox::StartFormat() const { return Selected() == 0 ? m_caret : m_cells[m_start].Format; }

void RecordingTextBox::FormatCaret() {
  if (!m_cells.empty()) m_caret = m_cells[m_start == 0 ? 0 : m_start - 1].Format;
}

void RecordingTextBox::Replace(const Cells& cells) {
  if (Selected() == 0 && cells.empty()) return;
  const auto at = m_cells.erase(m_cells.begin() + Offset(m_start), m_cells.begin() + Offset(m_start + Selected()));
  m_cells.insert(at, cells.begin(), cells.end());
  PlaceCaret(m_start + cells.size());
  m_change();
}

void RecordingTextBox::ReplaceAllBy(const Cells& cells) {
  const bool changes = !m_cells.empty() || !cells.empty();
  m_cells = cells;
  m_start = m_length = 0;
  if (changes) m_change();
}

} // namespace portico::test
