#pragma once

#include "memory/RichTextLines.h"
#include "platform/IRichTextBox.h"

#include <optional>

namespace portico::memory {

inline constexpr StringView StandardFontName = u"Sans";
inline constexpr double StandardFontSize = 10;

/// A rich text box without a window. What an edit or a search costs does not grow with the text that it does not touch.
class RichTextBox final : public IRichTextBox {
public:
  /// The font is that of the standard formatting: black, left, no indents, no bullets. Its size is in points.
  explicit RichTextBox(StringView fontName = StandardFontName, double fontSize = StandardFontSize);
  StringView ClassName() const override { return u"RichTextBox"; }

  std::int32_t SelStart() const override;
  void SelStart(std::int32_t position) override;
  std::int32_t SelLength() const override;
  void SelLength(std::int32_t length) override;
  String SelText() const override;
  void SelText(StringView text) override;
  String SelRTF() const override;
  void SelRTF(StringView fragment) override;
  SelectionFormat SelFormat() const override;
  void SelFormat(const SelectionFormat& changes) override;

  String Text() const override;
  void Text(StringView text) override;
  std::int32_t TextLength() const override;
  String TextRTF() const override;
  void TextRTF(StringView text) override;
  std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End = -1) override;
  void Span(StringView CharacterSet) override;
  std::int32_t GetLineFromChar(std::int32_t position) const override;
  void SetFocus() override { m_gotFocus(); }

  Event<>& Change() override { return m_change; }
  /// Fires at each `SetFocus`.
  Event<>& GotFocus() { return m_gotFocus; }

private:
  using Place = RichTextLines::Place;

  Place From() const { return m_lines.PlaceOf(m_start); }
  Place To() const { return m_lines.PlaceOf(m_start + m_length); }
  /// What would be typed looks like this.
  richtext::Formatting InsertionFormat() const;
  void Select(std::int64_t start, std::int64_t length);
  void Replace(richtext::FormattedText text);
  void Load(richtext::FormattedText text);

  richtext::Formatting m_standard;
  RichTextLines m_lines;
  std::int64_t m_start = 0;
  std::int64_t m_length = 0;                              // as it was set
  std::optional<richtext::CharacterFormat> m_caretFormat; // if it is not that of the text
  Event<> m_change;
  Event<> m_gotFocus;
};

} // namespace portico::memory
