#include "tap/MessageSplitter.h"

#include <algorithm>
#include <utility>

namespace portico::tap {

void KeptMessage::Add(std::string_view bytes) {
  m_message.Bytes.append(bytes.substr(0, m_limit - m_message.Bytes.size()));
  m_message.Length += bytes.size();
}

bool KeptMessage::EndsWith(std::string_view bytes) const {
  return m_message.Length == m_message.Bytes.size() && m_message.Bytes.ends_with(bytes);
}

Message KeptMessage::Take(std::size_t terminator) {
  Message message = std::exchange(m_message, {});
  message.Length -= terminator;
  if (message.Bytes.size() > message.Length) message.Bytes.resize(static_cast<std::size_t>(message.Length));
  return message;
}

void InstructionSplitter::Feed(std::string_view bytes, const MessageSink& sink) {
  while (!bytes.empty()) {
    bool found = false;
    const std::size_t taken = m_scanner.Scan(bytes, found);
    m_kept.Add(bytes.substr(0, taken));
    const bool ends = found && bytes[taken - 1] == '\n';
    if (ends) {
      Complete(m_kept.EndsWith("\r\n") ? 2 : 1, sink);
    } else if (found) {
      m_kept.Ask();
    }
    bytes.remove_prefix(taken);
  }
}

void InstructionSplitter::End(const MessageSink& sink) {
  if (!m_kept.Empty()) Complete(0, sink);
  m_scanner.Restart();
}

void InstructionSplitter::Complete(std::size_t terminator, const MessageSink& sink) {
  m_scanner.Restart();
  sink(m_kept.Take(terminator));
}

void AnswerSplitter::Feed(std::string_view bytes, const MessageSink& sink) {
  while (!bytes.empty()) {
    const std::size_t taken = m_reader.Feed(bytes);
    m_kept.Add(bytes.substr(0, taken));
    bytes.remove_prefix(taken);
    if (m_reader.Complete()) Complete(sink);
  }
}

void AnswerSplitter::Mark(const MessageSink& sink) {
  m_reader.End();
  Complete(sink);
}

void AnswerSplitter::BreakOff(const MessageSink& sink) {
  if (!m_kept.Empty()) sink(m_kept.Take(0));
  m_reader = Reader();
}

void AnswerSplitter::Complete(const MessageSink& sink) {
  sink(m_kept.Take(m_reader.TerminatorLength()));
  m_reader = Reader();
}

} // namespace portico::tap
