#include "simulator/vxi11/Vxi11Links.h"

#include <limits>
#include <utility>

namespace portico::simulator {

std::string_view Vxi11Link::Answer(TimePoint now) {
  if (m_read == m_answer.size()) {
    auto piece = m_connection->ReadPiece(now).value_or(IMessageConnection::Piece());
    m_answer = std::move(piece.Bytes);
    m_ends = piece.End;
    m_read = 0;
  }
  return std::string_view(m_answer).substr(m_read);
}

bool Vxi11Link::Drop(std::size_t count) {
  m_read += count;
  const bool whole = m_read == m_answer.size() && m_ends;
  if (whole) m_connection->AnswerTaken();
  return whole;
}

void Vxi11Link::Clear(TimePoint now) {
  m_answer.clear();
  m_read = 0;
  m_connection->Clear(now);
}

std::optional<std::int32_t> Vxi11Links::Make() {
  if (m_links.size() >= Most) return std::nullopt;
  auto connection = m_instrument->Connect();
  if (!connection) return std::nullopt;
  do {
    m_last = m_last == std::numeric_limits<std::int32_t>::max() ? 1 : m_last + 1;
  } while (m_links.contains(m_last));
  m_links.try_emplace(m_last, std::move(connection));
  return m_last;
}

Vxi11Link* Vxi11Links::Find(std::int32_t number) {
  const auto found = m_links.find(number);
  return found == m_links.end() ? nullptr : &found->second;
}

void Vxi11Links::Remove(std::int32_t number) {
  Unlock(number);
  m_links.erase(number);
}

bool Vxi11Links::Lock(std::int32_t number) {
  if (m_instrument->Faults().LocksRefused) return false;
  m_holder = number;
  return true;
}

bool Vxi11Links::Unlock(std::int32_t number) {
  if (m_holder != number) return false;
  m_holder.reset();
  return true;
}

} // namespace portico::simulator
