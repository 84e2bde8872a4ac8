#include "simulator/connection/RackClient.h"

#include "simulator/connection/StreamConnection.h"

namespace portico::simulator {

std::unique_ptr<SimulatedConnection> RackClient::operator()(const std::string& name) {
  if (m_replay == nullptr || m_name != name) {
    m_replay = m_rack->MakeReplay(name);
    m_name = name;
  }
  if (m_replay == nullptr) return m_rack->Connect(name);
  return std::make_unique<StreamConnection>(*m_replay);
}

} // namespace portico::simulator
