#pragma once

#include "framework/errors/ErrorNumbers.h"
#include "framework/errors/HuntERR.h"
#include "platform/IRichTextBox.h"
#include "support/Journal.h"
#include "support/doubles/Cells.h"

#include <algorithm>
#include <cstddef>

namespace portico::test {

/// A box that writes every call down, reads with a "get " in front, and answers from a simple model: units with a
/// format each. Of RTF it knows the encoders' fragments and what boxes of this kind have given out.
class RecordingTextBox final : public IRichTextBox, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override { return u"RecordingTextBox"; }

  // Past the journal.
  String Contents() const { return Units(0, m_cells.size()); }
  SelectionFormat FormatAt(std::size_t position) const { return m_cells.at(position).Format; }
  /// Appends text in a format, as a user would have made it; the caret stays.
  void Type(StringView text, const SelectionFormat& changes = {}) {
    SelectionFormat format = StandardFormat();
    Formats::Apply(format, changes);
    for (const char16_t unit : text) m_cells.push_back({unit, format});
    m_change();
  }
  void PlaceCaret(std::size_t position) {
    Select(position, 0);
    FormatCaret();
  }
  void Select(std::size_t start, std::size_t length) {
    m_start = start;
    m_length = length;
  }

  std::int32_t SelStart() const override { return Note("get SelStart"), static_cast<std::int32_t>(m_start); }
  void SelStart(std::int32_t position) override {
    Note("SelStart " + std::to_string(position));
    HuntERR::Check(position >= 0, ErrorNumber::BadPropertyValue, u"SelStart");
    PlaceCaret(std::min(static_cast<std::size_t>(position), m_cells.size()));
  }
  std::int32_t SelLength() const override { return Note("get SelLength"), static_cast<std::int32_t>(m_length); }
  void SelLength(std::int32_t length) override {
    Note("SelLength " + std::to_string(length));
    HuntERR::Check(length >= 0, ErrorNumber::BadPropertyValue, u"SelLength");
    m_length = std::min(static_cast<std::size_t>(length), m_cells.size() - m_start + 1); // the end counts as one
  }
  String SelText() const override { return Note("get SelText"), Units(m_start, Selected()); }
  std::int32_t SelTextLength() const override {
    return Note("get SelTextLength"), static_cast<std::int32_t>(Selected());
  }
  void SelText(StringView text) override {
    Note("SelText " + Escaped(text));
    const SelectionFormat format = StartFormat();
    Replace(Rtf::Formatted(text, format));
  }
  String SelRTF() const override {
    Note("get SelRTF");
    return Rtf::Remember({m_cells.begin() + Offset(m_start), m_cells.begin() + Offset(m_start + Selected())});
  }
  void SelRTF(StringView fragment) override {
    Note("SelRTF " + Escaped(fragment));
    Replace(Rtf::Read(fragment, StartFormat()));
  }
  SelectionFormat SelFormat() const override {
    Note("get SelFormat");
    if (Selected() == 0) return m_caret;
    SelectionFormat common = m_cells[m_start].Format;
    for (std::size_t i = m_start; i < m_start + Selected(); ++i) Formats::Intersect(common, m_cells[i].Format);
    return common;
  }
  void SelFormat(const SelectionFormat& changes) override {
    Note("SelFormat " + FormatText(changes));
    if (Selected() == 0) Formats::Apply(m_caret, changes);
    for (std::size_t i = m_start; i < m_start + Selected(); ++i) Formats::Apply(m_cells[i].Format, changes);
  }

  String Text() const override { return Note("get Text"), Contents(); }
  void Text(StringView text) override {
    Note("Text " + Escaped(text));
    ReplaceAllBy(Rtf::Formatted(text, StartFormat()));
  }
  std::int32_t TextLength() const override { return Note("get TextLength"), static_cast<std::int32_t>(m_cells.size()); }
  String TextRTF() const override { return Note("get TextRTF"), Rtf::Remember(m_cells); }
  void TextRTF(StringView text) override {
    Note("TextRTF " + Escaped(text));
    m_caret = StandardFormat();
    ReplaceAllBy(Rtf::Read(text, m_caret));
    FormatCaret();
  }
  std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End) override {
    Note("Find " + Escaped(text) + " " + std::to_string(Start) + (End < 0 ? "" : " " + std::to_string(End)));
    const auto found = Contents().substr(0, End < 0 ? String::npos : std::size_t(End)).find(text, std::size_t(Start));
    if (found == String::npos) return -1;
    Select(found, text.size());
    return static_cast<std::int32_t>(found);
  }
  void Span(StringView CharacterSet) override {
    Note("Span " + Escaped(CharacterSet));
    while (m_start + m_length < m_cells.size() &&
           CharacterSet.find(m_cells[m_start + m_length].Unit) != StringView::npos) {
      ++m_length;
    }
  }
  std::int32_t GetLineFromChar(std::int32_t position) const override {
    Note("GetLineFromChar " + std::to_string(position));
    const String before = Units(0, std::min(std::size_t(position), m_cells.size()));
    return static_cast<std::int32_t>(std::count(before.begin(), before.end(), u'\n'));
  }
  void SetFocus() override { Note("SetFocus"); }
  Event<>& Change() override { return m_change; }

private:
  static std::ptrdiff_t Offset(std::size_t position) { return static_cast<std::ptrdiff_t>(position); }

  /// How much there is of what was selected.
  std::size_t Selected() const { return std::min(m_length, m_cells.size() - m_start); }
  String Units(std::size_t from, std::size_t count) const { return UnitsOf(m_cells, from, count); }
  SelectionFormat StartFormat() const { return Selected() == 0 ? m_caret : m_cells[m_start].Format; }
  /// The format of what stands in front; of the first unit at the beginning.
  void FormatCaret() {
    if (!m_cells.empty()) m_caret = m_cells[m_start == 0 ? 0 : m_start - 1].Format;
  }
  void Replace(const Cells& cells) {
    if (Selected() == 0 && cells.empty()) return;
    const auto at = m_cells.erase(m_cells.begin() + Offset(m_start), m_cells.begin() + Offset(m_start + Selected()));
    m_cells.insert(at, cells.begin(), cells.end());
    PlaceCaret(m_start + cells.size());
    m_change();
  }
  void ReplaceAllBy(const Cells& cells) {
    const bool changes = !m_cells.empty() || !cells.empty();
    m_cells = cells;
    m_start = m_length = 0;
    if (changes) m_change();
  }

  Cells m_cells;
  std::size_t m_start = 0;
  std::size_t m_length = 0;
  SelectionFormat m_caret = StandardFormat();
  Event<> m_change;
};

} // namespace portico::test
