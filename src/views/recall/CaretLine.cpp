#include "views/recall/CaretLine.h"

namespace portico {
namespace {

std::int32_t StartOfLine(const IRichTextBox& box, std::int32_t position) {
  const std::int32_t line = box.GetLineFromChar(position);
  std::int32_t within = position;
  std::int32_t before = -1;
  while (within - before > 1) {
    const std::int32_t middle = before + (within - before) / 2;
    (box.GetLineFromChar(middle) == line ? within : before) = middle;
  }
  return within;
}

} // namespace

CaretLine CaretLineOf(IRichTextBox& box) {
  const std::int32_t caret = box.SelStart();
  const std::int32_t length = box.SelLength();
  CaretLine line{.Start = StartOfLine(box, caret), .Caret = caret, .Text = {}};
  const std::int32_t found = box.Find(NewLine, line.Start);
  box.SelStart(line.Start);
  box.SelLength((found < 0 ? box.TextLength() : found) - line.Start);
  line.Text = box.SelText();
  box.SelStart(caret);
  box.SelLength(length);
  return line;
}

void InsertPlain(IRichTextBox& box, StringView text) {
  box.SelText({});
  box.SelFormat({.SelBold = false,
                 .SelCharOffset = 0,
                 .SelColor = 0,
                 .SelItalic = false,
                 .SelStrikeThru = false,
                 .SelUnderline = false});
  box.SelText(text);
}

} // namespace portico
