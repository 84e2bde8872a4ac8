#pragma once

#include "framework/objects/Event.h"
#include "platform/IRichTextControl.h"

#include <cstddef>
#include <vector>

namespace portico {

/// An error that a line tells of, with the instruction that was behind it.
struct FoundError {
  std::int32_t Line; ///< counted from 0
  String Instruction;
  String Answer; ///< or the driver's message
};

/// The errors in a text that grows at its end until it is emptied. Each line is marked at the margin.
class ErrorMarks final : public IObject {
public:
  explicit ErrorMarks(const Ref<IRichTextControl>& text);
  ErrorMarks(const ErrorMarks&) = delete;
  ErrorMarks& operator=(const ErrorMarks&) = delete;
  ~ErrorMarks() override;
  StringView ClassName() const override { return u"ErrorMarks"; }

  /// What came to the text last tells of an error: its first line is marked.
  void MarkNewest(StringView instruction, StringView answer);

  /// In the order of their lines.
  const std::vector<FoundError>& All() const { return m_errors; }
  // Each selects the line, brings it into sight and gives the text the focus.
  /// The first error behind the line of the caret, or the last in front of it; beyond the end it goes on at the other
  /// one. Does nothing without an error.
  void GoToNext();
  void GoToPrevious();
  /// The place in `All` of the one in the line of the caret or behind it, else of the last. There must be one.
  std::size_t Nearest() const;
  /// Does nothing for one that there is no more.
  void GoTo(std::size_t error);

  /// Fires when the first error has come, and when all have gone.
  Event<> Changed;

private:
  void TextChanged();
  std::int32_t CaretLine() const { return m_text->GetLineFromChar(m_text->SelStart()); }

  Ref<IRichTextControl> m_text;
  Event<>::Connection m_connection;
  std::int32_t m_newest; // where what came last begins
  std::int32_t m_end;
  std::vector<FoundError> m_errors;
};

} // namespace portico
