#include "support/doubles/ScriptedConnection.h"

namespace portico::test {

ScriptedConnection::ScriptedConnection(InstrumentScript script, std::string& received)
    : m_script(std::move(script)), m_received(received) {}

void ScriptedConnection::Write(std::string_view bytes, simulator::TimePoint now) {
  m_received.append(bytes);
  m_input.append(bytes);
  for (std::string command; TakeCommand(m_input, command);) {
    const auto reaction = m_script.find(command);
    if (reaction == m_script.end() || reaction->second.kind != Reaction::Kind::Answer) continue;
    m_responses.push_back({now + reaction->second.delay, reaction->second.text});
  }
}

std::optional<std::string> ScriptedConnection::Read(simulator::TimePoint now) {
  if (m_responses.empty() || m_responses.front().ready > now) return std::nullopt;
  std::string text = std::move(m_responses.front().text);
  m_responses.pop_front();
  return text;
}

std::optional<simulator::TimePoint> ScriptedConnection::NextEvent() const {
  if (m_responses.empty()) return std::nullopt;
  return m_responses.front().ready;
}

} // namespace portico::test
