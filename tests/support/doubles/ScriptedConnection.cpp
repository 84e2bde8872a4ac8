#include "support/doubles/ScriptedConnection.h"

namespace portico::test {

ScriptedConnection::ScriptedConnection(InstrumentScript script, std::string& received)
    : m_script(std::move(script)), m_received(received) {}

void ScriptedConnection::Write(std::string_view bytes, simulator::TimePoint now) {
  m_received.append(bytes);
  m_input.append(bytes);
  for (std::string command; TakeCommand(m_input, command);) {
    const auto reaction = m_script.find(command);
    if (reaction == m_script.end()) continue;
    const auto& [kind, text, delay] = reaction->second;
    const bool whole = kind == Reaction::Kind::Answer;
    if (whole || kind == Reaction::Kind::Part) m_responses.push_back({now + delay, text, whole});
  }
}

std::optional<std::string> ScriptedConnection::Read(simulator::TimePoint now) {
  if (m_responses.empty() || m_responses.front().ready > now) return std::nullopt;
  std::string text = std::move(m_responses.front().text);
  m_whole = m_responses.front().whole;
  m_responses.pop_front();
  return text;
}

std::optional<simulator::TimePoint> ScriptedConnection::NextEvent() const {
  if (m_responses.empty()) return std::nullopt;
  return m_responses.front().ready;
}

void ScriptedConnection::Send(std::string text) { m_responses.push_back({{}, std::move(text), true}); }

} // namespace portico::test
