#include "simulator/hislip/HislipServer.h"

namespace portico::simulator {

std::shared_ptr<HislipSession> HislipServer::Begin() {
  if (m_sessions.size() >= MostSessions) return nullptr;
  auto connection = m_instrument->Connect();
  if (!connection) return nullptr;
  do {
    ++m_lastNumber;
  } while (m_sessions.contains(m_lastNumber));
  return m_sessions[m_lastNumber] =
             std::make_shared<HislipSession>(std::move(connection), m_instrument->Faults(), m_locks, m_lastNumber);
}

std::shared_ptr<HislipSession> HislipServer::Join(std::uint32_t number) {
  const auto found = m_sessions.find(static_cast<std::uint16_t>(number));
  if (found == m_sessions.end() || found->first != number || found->second->HasAsynchronous) return nullptr;
  found->second->HasAsynchronous = true;
  return found->second;
}

void HislipServer::End(HislipSession& session) {
  session.Over = true;
  m_locks.Forget(session.Number);
  m_sessions.erase(session.Number);
}

} // namespace portico::simulator
