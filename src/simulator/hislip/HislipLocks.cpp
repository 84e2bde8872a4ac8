#include "simulator/hislip/HislipLocks.h"

namespace portico::simulator {

HislipLocks::Answer HislipLocks::Request(std::uint16_t session, std::string_view key) {
  const bool exclusive = key.empty();
  if (exclusive ? m_exclusive == session : Shares(session)) return Answer::Refused;
  if (!Ready(session, key)) return Answer::Busy;
  if (exclusive) {
    m_exclusive = session;
  } else {
    m_sharing.insert(session);
    m_key = key;
  }
  return Answer::Granted;
}

bool HislipLocks::Ready(std::uint16_t session, std::string_view key) const {
  if (m_exclusive && *m_exclusive != session) return false;
  return m_sharing.empty() || (key.empty() ? Shares(session) : key == m_key);
}

HislipLocks::Released HislipLocks::Release(std::uint16_t session) {
  if (m_exclusive == session) {
    m_exclusive.reset();
    return Released::Exclusive;
  }
  return m_sharing.erase(session) > 0 ? Released::Shared : Released::Nothing;
}

void HislipLocks::Forget(std::uint16_t session) {
  while (Release(session) != Released::Nothing) {
  }
}

bool HislipLocks::Admits(std::uint16_t session) const {
  if (m_exclusive) return *m_exclusive == session;
  return m_sharing.empty() || Shares(session);
}

std::size_t HislipLocks::Holders() const { return m_sharing.size() + (m_exclusive && !Shares(*m_exclusive) ? 1 : 0); }

} // namespace portico::simulator
