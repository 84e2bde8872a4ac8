#pragma once

#include "platform/IRichTextBox.h"
#include "support/Journal.h"
#include "support/doubles/Cells.h"

#include <cstddef>

namespace portico::test {

/// A box that writes every call down, reads with a "get " in front, and answers from a simple model: units with a
/// format each. Of RTF it knows the encoders' fragments and what boxes of this kind have given out.
class RecordingTextBox final : public IRichTextBox, public Writer {
public:
  using Writer::Writer;
  StringView ClassName() const override;

  // Past the journal.
  String Contents() const;
  SelectionFormat FormatAt(std::size_t position) const;
  /// Appends text in a format, as a user would have made it; the caret stays.
  void Type(StringView text, const SelectionFormat& changes = {});
  void PlaceCaret(std::size_t position);
  void Select(std::size_t start, std::size_t length);

  std::int32_t SelStart() const override;
  void SelStart(std::int32_t position) override;
  std::int32_t SelLength() const override;
  void SelLength(std::int32_t length) override;
  String SelText() const override;
  std::int32_t SelTextLength() const override;
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
  std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End) override;
  void Span(StringView CharacterSet) override;
  std::int32_t GetLineFromChar(std::int32_t position) const override;
  void SetFocus() override;
  Event<>& Change() override;

private:
  static std::ptrdiff_t Offset(std::size_t position);

  /// How much there is of what was selected.
  std::size_t Selected() const;
  String Units(std::size_t from, std::size_t count) const;
  SelectionFormat StartFormat() const;
  /// The format of what stands in front; of the first unit at the beginning.
  void FormatCaret();
  void Replace(const Cells& cells);
  void ReplaceAllBy(const Cells& cells);

  Cells m_cells;
  std::size_t m_start = 0;
  std::size_t m_length = 0;
  SelectionFormat m_caret = Formats::Standard();
  Event<> m_change;
};

} // namespace portico::test
