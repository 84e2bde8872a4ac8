#include "terminal/ConversationPrinter.h"

#include "document/entities/ConversationMark.h"
#include "framework/text/Printable.h"

namespace portico::terminal {

void ConversationPrinter::Show(const IDataEntity& entity) {
  const String data = FromBytes(entity.ReadData());
  if (data == NewLine) return;
  StringView text = data;
  if (text.size() >= 2 && text.substr(text.size() - 2) == NewLine) text.remove_suffix(2);
  const std::string_view mark = ConversationMark(entity.DataType());
  for (StringView line : Split(text, u"\n")) {
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
    Print(mark, line);
  }
}

void ConversationPrinter::Print(std::string_view mark, StringView text) {
  m_line.assign(mark).append(m_toTerminal ? Printable(text) : ToUtf8(text)).push_back('\n');
  m_out.write(m_line.data(), static_cast<std::streamsize>(m_line.size())).flush();
}

} // namespace portico::terminal
