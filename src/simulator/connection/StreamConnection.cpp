#include "simulator/connection/StreamConnection.h"

namespace portico::simulator {

void StreamConnection::Write(std::string_view bytes, TimePoint now) {
  m_connection.Advance(now);
  while (!bytes.empty() && !CloseRequested()) {
    switch (m_framer.Feed(bytes)) {
    case MessageFramer::Outcome::Complete:
      m_connection.Submit(m_framer.TakeMessage(), now);
      break;
    case MessageFramer::Outcome::Overrun:
      m_connection.ReportOverrun();
      break;
    case MessageFramer::Outcome::Incomplete:
      break;
    }
  }
}

void StreamConnection::End(TimePoint now) {
  if (m_framer.End() == MessageFramer::Outcome::Complete) m_connection.Submit(m_framer.TakeMessage(), now);
}

void StreamConnection::Clear(TimePoint now) {
  m_framer = MessageFramer(Connection::LongestMessage);
  m_connection.Clear(now);
}

} // namespace portico::simulator
