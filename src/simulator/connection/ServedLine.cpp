#include "simulator/connection/ServedLine.h"

#include <utility>

namespace portico::simulator {

ServedLine::ServedLine(server::ConnectionFactory factory) : m_factory(std::move(factory)), m_connection(m_factory(0)) {}

void ServedLine::Receive(std::string_view bytes, TimePoint now) {
  if (m_connection->Finished(false)) m_connection = m_factory(0);
  m_connection->Receive(bytes, now);
}

} // namespace portico::simulator
