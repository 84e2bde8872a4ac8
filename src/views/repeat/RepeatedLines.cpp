#include "views/repeat/RepeatedLines.h"

#include "platform/StandardFont.h"

#include <algorithm>

namespace portico {
namespace {

/// Where the line that a position is in begins.
std::size_t StartOfLine(StringView text, std::size_t position) {
  const std::size_t behind =
      position < NewLine.size() ? StringView::npos : text.rfind(NewLine, position - NewLine.size());
  return behind == StringView::npos ? 0 : behind + NewLine.size();
}

/// The end of the line that a selection ends in; one that ends with a line end touches no further line.
std::size_t EndOfLine(StringView text, std::size_t end) {
  if (text.substr(0, end).ends_with(NewLine)) return end;
  return text.find(NewLine, end - 1) + NewLine.size();
}

} // namespace

RepeatedLines::RepeatedLines() : RichTextModel(StandardFontName, StandardFontSize) {}

void RepeatedLines::Copy(const IRichTextBox& box) {
  TextRTF(box.TextRTF());
  if (!Text().ends_with(NewLine)) {
    SelStart(TextLength());
    SelText(NewLine);
  }
  m_areSelected = box.SelTextLength() > 0;
  if (m_areSelected) {
    const String text = Text();
    const auto start = static_cast<std::size_t>(box.SelStart());
    const std::size_t end = start + static_cast<std::size_t>(box.SelTextLength());
    Delete(EndOfLine(text, end), text.size());
    Delete(0, StartOfLine(text, start));
  }
  m_copy = TextRTF();
  m_count = GetLineFromChar(TextLength());
}

void RepeatedLines::Delete(std::size_t start, std::size_t end) {
  SelStart(static_cast<std::int32_t>(start));
  SelLength(static_cast<std::int32_t>(end - start));
  SelText({});
}

} // namespace portico
