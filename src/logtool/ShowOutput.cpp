#include "logtool/ShowOutput.h"

#include "document/entities/ConversationMark.h"
#include "framework/text/Printable.h"

namespace portico::logtool {

void ShowOutput::BeginFile(const std::string& name) {
  if (m_namesFiles) m_out << "# " << Printable(FromUtf8(name).Text) << '\n';
}

void ShowOutput::OpenSession(const Session& session) {
  m_out << "# session from " << Printable(FromUtf8(session.OpenStamp).Text);
  if (session.CloseStamp) {
    m_out << " to " << Printable(FromUtf8(*session.CloseStamp).Text) << '\n';
  } else {
    m_out << ", not closed\n";
  }
}

std::string ShowOutput::Add(const LogEntry& entry) {
  const std::string_view mark = ConversationMark(FromUtf8(entry.Kind).Text);
  const std::string start = Printable(FromUtf8(entry.Stamp).Text).append(" ").append(mark);
  for (const StringView line : Lines(entry.Text)) m_out << start << Printable(line) << '\n';
  return {};
}

} // namespace portico::logtool
