#include "tap/MarkedClient.h"

namespace portico::tap {

using wire::HislipType;

bool MarkedClient::Receive(Said& said) {
  for (;;) {
    if (const auto piece = m_reader.Next(m_rest)) {
      m_whole = piece->Last;
      said = {std::string(piece->Payload), m_whole && piece->Header.Type == HislipType::DataEnd,
              piece->Header.Type == MarkedWire::Clear};
      return true;
    }
    if (!m_wire.Receive(m_received, m_cancellation)) return false;
    m_rest = m_received;
  }
}

bool MarkedClient::Send(HislipType type, std::string_view payload) {
  return m_wire.Send(wire::HislipMessage(type, 0, 0, payload), m_cancellation);
}

} // namespace portico::tap
