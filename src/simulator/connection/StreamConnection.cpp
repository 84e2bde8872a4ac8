#include "simulator/connection/StreamConnection.h"

#include <utility>

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

std::optional<StreamConnection::Piece> StreamConnection::ReadPiece(TimePoint now) {
  auto answer = Read(now);
  if (!answer) return std::nullopt;
  const bool end = answer->ends_with('\n'); // an answer without end comes in pieces without a line feed
  return Piece{std::move(*answer), end};
}

void StreamConnection::Interrupt(TimePoint now) {
  Clear(now);
  ReportInterrupted();
}

void StreamConnection::Clear(TimePoint now) {
  m_framer = MessageFramer(Connection::LongestMessage);
  m_connection.Clear(now);
}

} // namespace portico::simulator
