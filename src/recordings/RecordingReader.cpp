#include "recordings/RecordingReader.h"

#include "document/entities/IDataEntity.h"
#include "document/log/LogEntry.h"
#include "numbers/Block.h"

namespace portico::recordings {

void RecordingReader::SessionOpened(const LogElement& /*session*/) {
  ++m_session;
  m_isAsked = false;
  m_errors.Begin();
}

void RecordingReader::Entity(const LogElement& element) {
  if (m_wanted && *m_wanted != m_session) return;
  const auto read = ReadLogEntry(element);
  if (const auto* fault = std::get_if<std::string>(&read)) throw Refusal{*fault};
  const auto& entry = std::get<LogEntry>(read);
  const String kind = FromUtf8(entry.Kind).Text;
  const auto finding = m_errors.Add(kind, entry.Text);
  if (kind == DataTypeName::Instruction || kind == DataTypeName::AutomaticInstruction) {
    // Nobody can send one with a character that stands for no byte; it holds its place, though.
    m_book.Add(FindOutsideCodePage(entry.Text) ? ToUtf8(entry.Text) : ToCodePage(entry.Text));
    m_isAsked = true;
    return;
  }
  if (kind != DataTypeName::Response || !m_isAsked || finding == LogErrors::Finding::DriverMessage) return;
  const StringView answer = numbers::AnswerShownAs(entry.Text);
  if (FindOutsideCodePage(answer)) {
    throw Refusal{"the answer of " + entry.Stamp + " holds a character that stands for no byte"};
  }
  m_book.AddAnswer(ToCodePage(answer));
}

} // namespace portico::recordings
