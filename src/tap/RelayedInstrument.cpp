#include "tap/RelayedInstrument.h"

namespace portico::tap {

std::unique_ptr<simulator::IMessageConnection> RelayedInstrument::Connect() {
  const auto last = m_last.lock();
  if (last && last->HasClient()) return nullptr;
  const auto relay = std::make_shared<Relay>(m_place.Record);
  m_last = relay;
  // A line that does not connect drops its end, and that tells the client.
  m_place.Line.Connect(relay->WireEnd());
  return std::make_unique<RelayedConnection>(relay);
}

} // namespace portico::tap
