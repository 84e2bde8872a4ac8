#pragma once

#include "platform/IRichTextBox.h"

namespace portico {

/// The line that the caret, or the start of the selection, is in. Positions are those of the box.
struct CaretLine {
  std::int32_t Start = 0;
  std::int32_t Caret = 0;
  String Text; ///< without its line end

  std::int32_t Length() const { return static_cast<std::int32_t>(Text.size()); }
  /// What stands in front of the caret.
  StringView Head() const { return StringView(Text).substr(0, static_cast<std::size_t>(Caret - Start)); }
};

/// Leaves the selection as it is. What it costs does not grow with the text, but for a logarithm.
CaretLine CaretLineOf(IRichTextBox& box);

/// Puts text where the caret is, or in place of the selection, plain and black whatever stands around it.
void InsertPlain(IRichTextBox& box, StringView text);

} // namespace portico
