#include "terminal/Conversation.h"

#include "framework/IConfiguration.h"

namespace portico::terminal {
namespace {

/// What the user typed begins with the text, ignoring case; pacing queries and error checks do not.
bool IsTyped(StringView text) {
  const String typed = gConfiguration->ItemValue(u"CurrentInstruction");
  return EqualNoCase(StringView(typed).substr(0, text.size()), text);
}

} // namespace

void Conversation::Update(const Ref<IObject>& Subject) {
  const auto report = Cast<IReport>(Subject);
  const String command = report->GetCommand();
  if (command == u"CWriteCmd") {
    const String text = report->GetSCPIInstruction();
    if (!text.empty()) Print(IsTyped(text) ? "> " : "* ", text);
  } else if (command == u"CReadCmd") {
    PrintLines("< ", report->GetData());
  } else if (command == u"COpenCmd" || command == u"CSetConfigCmd" || command == u"CGetConfigCmd") {
    PrintLines("! ", report->GetData());
  }
}

void Conversation::Remark(StringView line) { Print("# ", line); }

void Conversation::PrintLines(std::string_view mark, StringView text) {
  if (text.size() >= 2 && text.substr(text.size() - 2) == NewLine) {
    text.remove_suffix(2);
    if (text.empty()) return; // a line end alone is not shown
  } else if (text.empty()) {
    return;
  }
  for (StringView line : Split(text, u"\n")) {
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
    Print(mark, line);
  }
}

void Conversation::Print(std::string_view mark, StringView text) {
  m_line.assign(mark).append(ToUtf8(text)).push_back('\n');
  m_out.write(m_line.data(), static_cast<std::streamsize>(m_line.size())).flush();
}

} // namespace portico::terminal
