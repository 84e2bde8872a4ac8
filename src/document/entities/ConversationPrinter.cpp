#include "document/entities/ConversationPrinter.h"

#include "document/entities/ConversationMark.h"
#include "framework/text/Printable.h"

namespace portico {

void ConversationPrinter::Show(const IDataEntity& entity) {
  const String data = entity.ReadText();
  if (data == NewLine) return;
  StringView text = data;
  if (text.ends_with(NewLine)) text.remove_suffix(NewLine.size());
  const std::string_view mark = ConversationMark(entity.DataType());
  for (;;) {
    const std::size_t end = text.find(u'\n');
    StringView line = text.substr(0, end);
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    Print(mark, line);
    if (end == StringView::npos) return;
    text.remove_prefix(end + 1);
  }
}

void ConversationPrinter::Print(std::string_view mark, StringView text) {
  m_line.assign(mark);
  if (m_toTerminal) {
    m_line += Printable(text);
  } else {
    AppendUtf8(m_line, text);
  }
  m_line += '\n';
  m_out.write(m_line.data(), static_cast<std::streamsize>(m_line.size()));
}

} // namespace portico
