#include "simulator/connection/FaultyConnection.h"

#include <cstddef>
#include <utility>

namespace portico::simulator {
namespace {

/// Neither a digit nor the end of a line; as the head of a message in any protocol they are nonsense.
constexpr std::string_view StrayBytes = "?~\x7f";

} // namespace

FaultyConnection::FaultyConnection(std::unique_ptr<server::IServedConnection> connection, Instrument& instrument)
    : m_connection(std::move(connection)), m_faults(instrument.Faults()), m_acceptDelay(m_faults.AcceptDelay) {}

server::ConnectionFactory FaultyConnection::Factory(server::ConnectionFactory factory, Instrument& instrument) {
  return [factory = std::move(factory), &instrument](std::uint16_t port) {
    return std::make_unique<FaultyConnection>(factory(port), instrument);
  };
}

void FaultyConnection::Receive(std::string_view bytes, TimePoint now) {
  const auto wait = std::exchange(m_acceptDelay, {});
  if (wait == TimePoint::duration::zero()) {
    m_connection->Receive(bytes, now);
  } else {
    m_held = bytes;
    m_acceptAt = now + wait;
  }
}

void FaultyConnection::Collect(std::string& output, TimePoint now) {
  if (m_acceptAt) {
    if (now < *m_acceptAt) return;
    m_acceptAt.reset();
    m_connection->Receive(std::exchange(m_held, {}), now);
  }
  if (m_dropped) return;
  const std::size_t before = output.size();
  m_connection->Collect(output, now);
  if (output.size() == before) return;
  if (m_faults.Take(AnswerFault::Stray)) {
    output.insert(before, StrayBytes);
  } else if (m_faults.Take(AnswerFault::Half)) {
    output.resize(before + (output.size() - before) / 2);
  } else if (m_faults.Take(AnswerFault::Drop)) {
    output.resize(before);
    m_dropped = true;
  }
  m_faults.Deliver(AnswerFault::None); // one that this protocol does not know was of this answer, too
}

bool FaultyConnection::AcceptsInput() const { return !m_acceptAt && m_connection->AcceptsInput(); }

std::optional<TimePoint> FaultyConnection::NextEvent() const {
  if (m_dropped) return std::nullopt;
  return m_acceptAt ? m_acceptAt : m_connection->NextEvent();
}

bool FaultyConnection::Finished(bool inputEnded) const {
  return m_dropped || (!m_acceptAt && m_connection->Finished(inputEnded));
}

} // namespace portico::simulator
