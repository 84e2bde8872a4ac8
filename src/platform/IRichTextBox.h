#pragma once

#include "framework/errors/Ref.h"
#include "framework/objects/Event.h"
#include "platform/SelectionFormat.h"
#include "platform/TextFragment.h"

#include <cstdint>

namespace portico {

// Positions and lengths count UTF-16 units from 0; a line end counts as two, CR and LF. A position between the two
// stands for the one in front of them. A text has at most 2^31 - 1 units: what would make it longer raises
// `OutOfMemory`.
//
// Each character and each line end has a look of its own, each line a paragraph's. An insertion gives the lines that it
// ends, and the last one that it begins, the paragraph look that it has itself; a piece within a line leaves that
// line's look, unless it is all that there is of the line. Of a line end that is deleted the first line's paragraph
// look remains, or, if nothing remains of that line, the second's.

/// The selection of a rich text box. With nothing selected it is the caret, which looks like the character in front of
/// it in its line, at the start of a line like the one behind it, and in an empty line like its line end; or as
/// `SelFormat` has told it since the selection was last set or text came in.
class ITextSelection : public virtual IObject {
public:
  virtual std::int32_t SelStart() const = 0;
  /// Clamped to the text's length; the selection becomes empty. A negative value raises `BadPropertyValue`.
  virtual void SelStart(std::int32_t position) = 0;
  /// What was set, although no more is selected than there is.
  virtual std::int32_t SelLength() const = 0;
  /// Clamped to one more than the text behind `SelStart`: the end of the text counts as one, but is never part of what
  /// is selected. So one up and one down again leaves what is selected as it was. A negative value raises
  /// `BadPropertyValue`.
  virtual void SelLength(std::int32_t length) = 0;

  virtual String SelText() const = 0;
  /// The length of `SelText`, without making it.
  virtual std::int32_t SelTextLength() const = 0;
  /// Replaces the selection by plain text that looks like the selection's first character, or like the caret; the caret
  /// stands behind it. CR LF, CR and LF each make a line end. Empty text deletes the selection.
  virtual void SelText(StringView text) = 0;

  /// A complete fragment in which every formatting value is explicit; of an empty selection one without text, which
  /// looks like the caret.
  virtual String SelRTF() const = 0;
  /// Replaces the selection by the fragment. What the fragment does not format looks like the selection's first
  /// character and line, or like the caret; the caret stands behind it. A line end that the fragment ends in is one of
  /// the text. Empty text deletes the selection. Any text is accepted: what is not RTF is plain text.
  virtual void SelRTF(StringView fragment) = 0;
  /// The same as `SelRTF` of the fragment's RTF, which a box need not make.
  virtual void SelFragment(const TextFragment& fragment) { SelRTF(fragment.Rtf()); }

  /// The thirteen values; one that differs within the selection, line ends included, is not set.
  virtual SelectionFormat SelFormat() const = 0;
  /// Applies the values that are set. Paragraph values act on every paragraph that the selection touches, not on one
  /// that it ends in front of. A value outside its range raises `BadPropertyValue`, and nothing is changed.
  virtual void SelFormat(const SelectionFormat& changes) = 0;
};

/// A text of formatted lines with one selection.
class IRichTextBox : public virtual ITextSelection {
public:
  /// Lines are separated by CR LF.
  virtual String Text() const = 0;
  /// The text, also an empty one, takes the look of the selection's start, as `SelText` does; the caret stands at 0.
  virtual void Text(StringView text) = 0;
  /// The length of `Text`, without making it.
  virtual std::int32_t TextLength() const = 0;

  virtual String TextRTF() const = 0;
  /// Replaces the whole text by the fragment, which starts from the standard formatting; the caret stands at 0.
  virtual void TextRTF(StringView text) = 0;

  /// Finds a text, exactly, from a position on (from 0 for a negative one), and selects it. Returns its position, or
  /// -1, which leaves the selection as it was. The match ends at `End` or before if that is not negative. Line ends are
  /// found as CR LF only; an empty text is not found.
  virtual std::int32_t Find(StringView text, std::int32_t Start, std::int32_t End = -1) = 0;
  /// Extends the selection's end forward over units of the set. A line end is two of them, CR and LF: one that the set
  /// has only half of is not passed.
  virtual void Span(StringView CharacterSet) = 0;
  /// The line, counted from 0, of a position; of the last line for a position behind the text, of the first for a
  /// negative one.
  virtual std::int32_t GetLineFromChar(std::int32_t position) const = 0;
  virtual void SetFocus() = 0;

  /// Fires after each change of the characters of the text, by whatever road, when all is in place: a handler may use
  /// the box. Formatting fires nothing, nor does the replacement of nothing by nothing.
  virtual Event<>& Change() = 0;
};

} // namespace portico
