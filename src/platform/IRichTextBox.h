#pragma once

#include "framework/Event.h"
#include "framework/Ref.h"
#include "platform/SelectionFormat.h"

#include <cstdint>

namespace portico {

// Positions and lengths count UTF-16 units from 0; a line end counts as two, CR and LF. Lengths are 32-bit, as on every
// control that a box may stand on.

/// The selection of a rich text box. With nothing selected it is the caret, whose formatting typed text would take.
class ITextSelection : public virtual IObject {
public:
  virtual std::int32_t SelStart() const = 0;
  /// Clamped to the text's length; the selection becomes empty. A negative value raises 380.
  virtual void SelStart(std::int32_t position) = 0;
  virtual std::int32_t SelLength() const = 0;
  /// Clamped to the text behind `SelStart`. A negative value raises 380.
  virtual void SelLength(std::int32_t length) = 0;

  virtual String SelText() const = 0;
  /// Replaces the selection by plain text in the formatting at its start; the caret stands behind it. CR LF, CR and LF
  /// each make a line end. Empty text deletes the selection.
  virtual void SelText(StringView text) = 0;

  /// A complete fragment in which every formatting value is explicit; of an empty selection a fragment without text.
  virtual String SelRTF() const = 0;
  /// Replaces the selection by the fragment. What the fragment does not format takes the selection's formatting; the
  /// caret stands behind it. Empty text deletes the selection. Any text is accepted: what is not RTF is plain text.
  virtual void SelRTF(StringView fragment) = 0;

  /// The thirteen values; one that differs within the selection is not set.
  virtual SelectionFormat SelFormat() const = 0;
  /// Applies the values that are set. Paragraph values act on every paragraph that the selection touches.
  virtual void SelFormat(const SelectionFormat& changes) = 0;
};

/// A text of formatted lines with one selection.
class IRichTextBox : public virtual ITextSelection {
public:
  /// Lines are separated by CR LF.
  virtual String Text() const = 0;
  /// The text takes the formatting at the start of the selection; the caret stands at 0.
  virtual void Text(StringView text) = 0;
  /// The length of `Text`, without making it.
  virtual std::int32_t TextLength() const = 0;

  virtual String TextRTF() const = 0;
  /// Replaces the whole text by the fragment, which starts from the standard formatting; the caret stands at 0.
  virtual void TextRTF(StringView text) = 0;

  /// Finds a text, exactly, from a position on, and selects it. Returns its position, or -1, which leaves the selection
  /// as it was. The match ends before `End` if that is not negative.
  virtual std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End = -1) = 0;
  /// Extends the selection's end forward over characters of the set. A line end belongs to the set if either of its
  /// characters does, and is passed over whole.
  virtual void Span(StringView CharacterSet) = 0;
  /// The line, counted from 0, of a position; of the last line for a position behind the text.
  virtual std::int32_t GetLineFromChar(std::int32_t position) const = 0;
  virtual void SetFocus() = 0;

  /// Fires after each change of the characters of the text, by whatever road.
  virtual Event<>& Change() = 0;
};

} // namespace portico
