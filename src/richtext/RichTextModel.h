#pragma once

#include "platform/ILineMarks.h"
#include "platform/IRichTextBox.h"
#include "richtext/MarkedLines.h"
#include "richtext/RichTextLines.h"

#include <functional>
#include <optional>
#include <utility>

namespace portico::richtext {

/// All of a rich text box but its window: text, selection and looks. What an edit or a search costs does not grow with
/// the text that it does not touch. A box that shows its text is told what has to be shown anew.
class RichTextModel : public virtual IRichTextBox, public virtual ILineMarks {
public:
  std::int32_t SelStart() const override;
  void SelStart(std::int32_t position) override;
  std::int32_t SelLength() const override;
  void SelLength(std::int32_t length) override;
  String SelText() const override;
  std::int32_t SelTextLength() const override;
  void SelText(StringView text) override;
  String SelRTF() const override;
  void SelRTF(StringView fragment) override;
  void SelFragment(const TextFragment& fragment) override;
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

  Event<>& Change() override { return m_change; }

  void MarkLine(std::int32_t position) override;
  void ClearMarks() override;
  std::vector<std::int32_t> MarkedLines() const override;
  void GoToLine(std::int32_t line) override;
  void ShowNotes(const Ref<ILineNotes>& notes) override;
  Ref<ILineNotes> Notes() const override { return m_notes; }

protected:
  using Place = RichTextLines::Place;

  /// The font is that of the standard formatting: black, left, no indents, no bullets. Its size is in points.
  RichTextModel(StringView fontName, double fontSize);

  /// The lines from `first` on, `before` of them, have become `after`, or look different. Called before `Change` fires.
  virtual void OnLines(std::size_t /*first*/, std::size_t /*before*/, std::size_t /*after*/) {}
  /// The selection has been set, or what would be typed looks different.
  virtual void OnSelection() {}
  /// A line has been marked, a mark has moved or gone, or the notes are others.
  virtual void OnMarks() {}

  const Formatting& Standard() const { return m_standard; }
  const RichTextLines& Lines() const { return m_lines; }
  const richtext::MarkedLines& Marks() const { return m_marks; }
  Place From() const { return m_lines.PlaceOf(m_start); }
  Place To() const { return m_lines.PlaceOf(m_start + m_length); }
  /// What would be typed looks like this.
  Formatting InsertionFormat() const;
  void Select(std::int64_t start, std::int64_t length);
  /// Puts lines in place of others, as they were edited in the window; returns whether their text differs. Neither the
  /// selection nor `Change` follows by itself.
  bool TakeLines(std::size_t first, std::size_t count, FormattedText lines);

  /// Runs an edit and `then` behind it; `Change` waits for the end of both, and fires once.
  void EditAtOnce(const std::function<void()>& edit, const std::function<void()>& then);

  /// Puts text in place of the selection, as `SelRTF` does, but does not fire `Change`; returns whether it is to fire.
  bool Put(FormattedText text);

private:
  /// The look that stands there; a caret's is that of the character in front of it in its line.
  const CharacterFormat& LookAt(Place place, bool isCaret) const;
  /// Takes the selection away.
  void Delete();
  void Replace(FormattedText text) {
    if (Put(std::move(text))) Changed();
  }
  void Changed();
  void Load(FormattedText text);
  /// What stood between two places has gone, and a text of so many lines has come.
  void MoveMarks(Place from, Place to, std::size_t lines);

  Formatting m_standard;
  RichTextLines m_lines;
  richtext::MarkedLines m_marks;
  Ref<ILineNotes> m_notes;
  std::int64_t m_start = 0;
  std::int64_t m_length = 0;                    // as it was set
  std::optional<CharacterFormat> m_caretFormat; // if it is not that of the text
  Event<> m_change;
  bool m_isChangeHeld = false;
  bool m_awaitsChange = false; // held, and to be fired
};

} // namespace portico::richtext
