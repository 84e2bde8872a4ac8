#include "simulator/language/MessageFramer.h"

#include <utility>

namespace portico::simulator {

MessageFramer::Outcome MessageFramer::Feed(std::string_view& bytes) {
  while (!bytes.empty()) {
    bool complete = false;
    const std::size_t taken = m_scanner.Scan(bytes, complete);
    const bool fits = Store(bytes.substr(0, complete ? taken - 1 : taken));
    bytes.remove_prefix(taken);
    if (complete && Finish()) return Outcome::Complete;
    if (!fits) return Outcome::Overrun;
  }
  return Outcome::Incomplete;
}

MessageFramer::Outcome MessageFramer::End() {
  return Finish() && !m_message.empty() ? Outcome::Complete : Outcome::Incomplete;
}

bool MessageFramer::Finish() {
  m_scanner.Restart();
  return !std::exchange(m_discarding, false);
}

std::string MessageFramer::TakeMessage() { return std::exchange(m_message, {}); }

/// False if the message has just become too long.
bool MessageFramer::Store(std::string_view bytes) {
  if (m_discarding) return true;
  if (bytes.size() > m_limit - m_message.size()) {
    m_discarding = true;
    m_message = {};
    return false;
  }
  m_message.append(bytes);
  return true;
}

} // namespace portico::simulator
