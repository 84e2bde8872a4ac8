#include "tap/RelayedConnection.h"

namespace portico::tap {
namespace {

constexpr std::uint8_t MessageAvailableBit = 16;

} // namespace

bool RelayedConnection::HasRoom() {
  m_relay->TakeNews();
  return m_relay->HasRoom();
}

std::optional<RelayedConnection::Piece> RelayedConnection::ReadPiece(TimePoint /*now*/) {
  m_relay->TakeNews();
  return m_relay->Read();
}

std::optional<RelayedConnection::TimePoint> RelayedConnection::NextEvent() const {
  if (!m_relay->HasNews()) return std::nullopt;
  return TimePoint{};
}

std::uint8_t RelayedConnection::SerialPoll(bool messageAvailable, TimePoint /*now*/) {
  return messageAvailable ? MessageAvailableBit : std::uint8_t{0};
}

} // namespace portico::tap
