#include "tap/BridgeLine.h"

#include <utility>

namespace portico::tap {

BridgeLine::BridgeLine(const drivers::ResourceName& name, InstrumentBridge::TransportMaker make, drivers::Marks marks,
                       server::SocketServer& server, std::chrono::milliseconds timeout, InstrumentBridge::Teller tell)
    : m_name(name),
      m_make(std::move(make)),
      m_marks(marks),
      m_server(server),
      m_timeout(timeout),
      m_tell(std::move(tell)) {}

BridgeLine::~BridgeLine() {
  for (const auto& bridge : m_bridges) {
    if (const auto standing = bridge.lock()) standing->Cancel();
  }
  if (m_thread.joinable()) m_thread.join();
}

bool BridgeLine::Connect(std::unique_ptr<server::IServedConnection> end) {
  auto [wire, served] = LocalWire::Make();
  const auto bridge = std::make_shared<InstrumentBridge>(m_name, m_make, m_marks, m_timeout, m_tell);
  std::erase_if(m_bridges, [](const auto& before) { return before.expired(); });
  m_bridges.push_back(bridge);
  m_server.Add(std::move(served), std::move(end));
  m_thread = std::thread([bridge, here = std::move(wire), before = std::move(m_thread)]() mutable {
    if (before.joinable()) before.join();
    bridge->Converse(std::move(here));
  });
  return true;
}

/// One connection carries all that there is to say.
bool BridgeLine::ConnectFurther(std::unique_ptr<server::IServedConnection> /*end*/, std::uint16_t /*port*/) {
  return false;
}

} // namespace portico::tap
