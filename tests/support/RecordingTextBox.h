#pragma once

#include "framework/ErrorNumbers.h"
#include "framework/HuntERR.h"
#include "platform/IRichTextBox.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace portico::test {

/// Line ends as they are written in source.
inline std::string Escaped(StringView text) {
  return ToUtf8(ReplaceAll(ReplaceAll(text, u"\r", u"\\r"), u"\n", u"\\n"));
}

/// The values of a format that are set.
inline std::string FormatText(const SelectionFormat& format) {
  std::string text;
  const auto number = [&](const char* name, const auto& value) {
    if (value) text += std::string(text.empty() ? "" : " ") + name + "=" + std::to_string(*value);
  };
  number("alignment", format.SelAlignment);
  number("bold", format.SelBold);
  number("bullet", format.SelBullet);
  number("offset", format.SelCharOffset);
  if (format.SelColor) {
    text += std::string(text.empty() ? "" : " ") + "color=" + ToUtf8(ToHexText(std::uint32_t(*format.SelColor)));
  }
  if (format.SelFontName) text += " font=" + ToUtf8(*format.SelFontName);
  if (format.SelFontSize) text += " size=" + ToUtf8(ToText(*format.SelFontSize));
  number("hanging", format.SelHangingIndent);
  number("indent", format.SelIndent);
  number("italic", format.SelItalic);
  number("right", format.SelRightIndent);
  number("strike", format.SelStrikeThru);
  number("underline", format.SelUnderline);
  return text;
}

/// A box that writes every call down, reads with a "get " in front, and answers from a simple model: units with a
/// format each. Of RTF it knows the encoders' fragments and what boxes of this kind have given out.
class RecordingTextBox final : public IRichTextBox {
public:
  using Journal = std::vector<std::string>;
  struct Cell {
    char16_t Unit;
    SelectionFormat Format;
  };
  using Cells = std::vector<Cell>;

  /// The journal must outlive the box.
  explicit RecordingTextBox(Journal& journal, std::string name = {})
      : m_journal(journal), m_name(name.empty() ? name : name + ".") {}
  StringView ClassName() const override { return u"RecordingTextBox"; }

  /// What text has that nobody has formatted.
  static SelectionFormat Standard() {
    SelectionFormat format;
    format.SelAlignment = format.SelHangingIndent = format.SelIndent = format.SelRightIndent = 0;
    format.SelCharOffset = format.SelColor = 0;
    format.SelBullet = format.SelBold = format.SelItalic = format.SelStrikeThru = format.SelUnderline = false;
    format.SelFontName = u"Standard";
    format.SelFontSize = 10;
    return format;
  }

  /// Called with each line of the journal; may raise.
  std::function<void(const std::string&)> OnCall;

  // Past the journal.
  String Contents() const { return Units(0, m_cells.size()); }
  const Cells& Formatted() const { return m_cells; }
  SelectionFormat FormatAt(std::size_t position) const { return m_cells.at(position).Format; }
  /// Appends text in a format, as a user would have made it; the caret stays.
  void Type(StringView text, const SelectionFormat& changes = {}) {
    SelectionFormat format = Standard();
    Apply(format, changes);
    for (const char16_t unit : text) m_cells.push_back({unit, format});
    m_change();
  }
  void PlaceCaret(std::size_t position) {
    m_start = position;
    m_length = 0;
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
  void SelText(StringView text) override {
    Note("SelText " + Escaped(text));
    const SelectionFormat format = StartFormat();
    Replace(Formatted(text, format));
  }
  String SelRTF() const override {
    Note("get SelRTF");
    return Remember({m_cells.begin() + Offset(m_start), m_cells.begin() + Offset(m_start + Selected())});
  }
  void SelRTF(StringView fragment) override {
    Note("SelRTF " + Escaped(fragment));
    Replace(Read(fragment, StartFormat()));
  }
  SelectionFormat SelFormat() const override {
    Note("get SelFormat");
    if (Selected() == 0) return m_caret;
    SelectionFormat common = m_cells[m_start].Format;
    for (std::size_t i = m_start; i < m_start + Selected(); ++i) Intersect(common, m_cells[i].Format);
    return common;
  }
  void SelFormat(const SelectionFormat& changes) override {
    Note("SelFormat " + FormatText(changes));
    if (Selected() == 0) Apply(m_caret, changes);
    for (std::size_t i = m_start; i < m_start + Selected(); ++i) Apply(m_cells[i].Format, changes);
  }

  String Text() const override { return Note("get Text"), Contents(); }
  void Text(StringView text) override {
    Note("Text " + Escaped(text));
    ReplaceAllBy(Formatted(text, StartFormat()));
  }
  std::int32_t TextLength() const override { return Note("get TextLength"), static_cast<std::int32_t>(m_cells.size()); }
  String TextRTF() const override { return Note("get TextRTF"), Remember(m_cells); }
  void TextRTF(StringView text) override {
    Note("TextRTF " + Escaped(text));
    m_caret = Standard();
    ReplaceAllBy(Read(text, m_caret));
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

  void Note(const std::string& line) const {
    m_journal.push_back(m_name + line);
    if (OnCall) OnCall(m_journal.back());
  }
  /// How much there is of what was selected.
  std::size_t Selected() const { return std::min(m_length, m_cells.size() - m_start); }
  String Units(std::size_t from, std::size_t count) const {
    String text;
    for (std::size_t i = from; i < from + count; ++i) text.push_back(m_cells[i].Unit);
    return text;
  }
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

  template <class T>
  static void Take(std::optional<T>& value, const std::optional<T>& change) {
    if (change) value = change;
  }
  template <class T>
  static void Keep(std::optional<T>& value, const std::optional<T>& other) {
    if (value != other) value.reset();
  }
  template <class Do>
  static void Each(SelectionFormat& a, const SelectionFormat& b, Do&& act) {
    act(a.SelAlignment, b.SelAlignment);
    act(a.SelBullet, b.SelBullet);
    act(a.SelHangingIndent, b.SelHangingIndent);
    act(a.SelIndent, b.SelIndent);
    act(a.SelRightIndent, b.SelRightIndent);
    act(a.SelBold, b.SelBold);
    act(a.SelCharOffset, b.SelCharOffset);
    act(a.SelColor, b.SelColor);
    act(a.SelFontName, b.SelFontName);
    act(a.SelFontSize, b.SelFontSize);
    act(a.SelItalic, b.SelItalic);
    act(a.SelStrikeThru, b.SelStrikeThru);
    act(a.SelUnderline, b.SelUnderline);
  }
  static void Apply(SelectionFormat& format, const SelectionFormat& changes) {
    Each(format, changes, [](auto& value, const auto& change) { Take(value, change); });
  }
  static void Intersect(SelectionFormat& format, const SelectionFormat& other) {
    Each(format, other, [](auto& value, const auto& its) { Keep(value, its); });
  }

  static Cells Formatted(StringView text, const SelectionFormat& format) {
    Cells cells;
    for (const char16_t unit : text) cells.push_back({unit, format});
    return cells;
  }

  // What boxes have given out stands under its number, so that formatting crosses from box to box.
  static constexpr StringView Given = u"{\\rtf1\\given";
  static std::vector<Cells>& Store() {
    static std::vector<Cells> store;
    return store;
  }
  static String Remember(Cells cells) {
    Store().push_back(std::move(cells));
    return String(Given) + ToText(static_cast<std::int64_t>(Store().size() - 1)) + u"}";
  }
  static Cells Read(StringView fragment, const SelectionFormat& format) {
    static constexpr StringView header = u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1 ";
    if (fragment.substr(0, Given.size()) == Given) {
      const auto number = ReadNumber(fragment.substr(Given.size(), fragment.size() - Given.size() - 1));
      return Store().at(static_cast<std::size_t>(number.value()));
    }
    if (fragment.substr(0, header.size()) != header) return Formatted(fragment, format);
    String text;
    for (const char16_t unit : ReplaceAll(fragment.substr(header.size()), u"\\par ", u"\u0001")) {
      if (unit == u'\u0001') {
        text += NewLine;
      } else if (unit != u'\r' && unit != u'\n' && unit != u'{' && unit != u'}') {
        text += unit;
      }
    }
    return Formatted(text, format);
  }

  Journal& m_journal;
  std::string m_name;
  Cells m_cells;
  std::size_t m_start = 0;
  std::size_t m_length = 0;
  SelectionFormat m_caret = Standard();
  Event<> m_change;
};

/// The lines of a journal that change something.
inline std::vector<std::string> Writes(const std::vector<std::string>& journal) {
  std::vector<std::string> lines;
  for (const auto& line : journal) {
    if (line.find("get ") == std::string::npos) lines.push_back(line);
  }
  return lines;
}

} // namespace portico::test
