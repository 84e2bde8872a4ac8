#pragma once

#include "framework/objects/ClassKey.h"
#include "framework/objects/Creator.h"
#include "platform/IRichTextControl.h"
#include "views/recall/CaretLine.h"

#include <deque>

namespace portico {

/// Brings lines that were sent to the caret's line of a box, one after the other: those that begin with what stands in
/// front of the caret, capitals or not. The caret goes to their end. Typing, or moving the caret, begins anew with what
/// stands in front of it then. Each line that is brought is plain and black, and one step of the user's undo.
class LineRecall final : public IObject {
public:
  StringView ClassName() const override { return u"LineRecall"; }

  // Where there is none the line stays. Lines that look like the one that stands there are passed over.

  /// The newest line that was sent before the one shown. `lines` is the oldest first.
  void Earlier(IRichTextControl& box, const std::deque<String>& lines);
  /// The next one that was sent after it; behind the newest, what the user had typed, in its own looks.
  void Later(IRichTextControl& box, const std::deque<String>& lines);
  /// That line, whatever stands in front of the caret.
  void Bring(IRichTextControl& box, const std::deque<String>& lines, std::size_t index);

private:
  bool IsShown(const CaretLine& line, const std::deque<String>& lines) const;
  void Begin(IRichTextBox& box, const CaretLine& line);
  bool Fits(StringView sent, StringView shown) const;
  void Show(IRichTextControl& box, const CaretLine& line, const std::deque<String>& lines, std::size_t index);
  void Restore(IRichTextControl& box, const CaretLine& line);

  struct Typed {
    String Head; // what is looked for
    String Fragment;
    std::int32_t Caret = 0; // in the line
  } m_typed;
  std::int32_t m_start = 0;
  String m_shown; // empty while nothing is
  std::size_t m_index = 0;
};

namespace Class {

inline constexpr ClassKey<LineRecall> LineRecall{u"LineRecall"};

} // namespace Class

extern const CreatorRow CtorLineRecall;

} // namespace portico
