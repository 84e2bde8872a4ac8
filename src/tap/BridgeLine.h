#pragma once

#include "drivers/ResourceName.h"
#include "server/SocketServer.h"
#include "tap/IInstrumentLine.h"
#include "tap/InstrumentBridge.h"

#include <chrono>
#include <memory>
#include <thread>
#include <vector>

namespace portico::tap {

/// The way to an instrument of any kind, for clients that speak otherwise. Conversing with it blocks, so that each
/// connection has a thread.
class BridgeLine final : public IInstrumentLine {
public:
  /// `server` serves the connections and must outlive it; the rest is as in InstrumentBridge, and `tell` is called from
  /// other threads.
  BridgeLine(const drivers::ResourceName& name, InstrumentBridge::TransportMaker make, drivers::Marks marks,
             server::SocketServer& server, std::chrono::milliseconds timeout, InstrumentBridge::Teller tell);
  ~BridgeLine() override;
  BridgeLine(const BridgeLine&) = delete;
  BridgeLine& operator=(const BridgeLine&) = delete;

  /// The instrument is opened in the thread, once the connection before is over. If that fails, the connection ends.
  bool Connect(std::unique_ptr<server::IServedConnection> end) override;
  bool ConnectFurther(std::unique_ptr<server::IServedConnection> end, std::uint16_t port) override;

private:
  const drivers::ResourceName m_name;
  const InstrumentBridge::TransportMaker m_make;
  const drivers::Marks m_marks;
  server::SocketServer& m_server;
  const std::chrono::milliseconds m_timeout;
  const InstrumentBridge::Teller m_tell;
  std::vector<std::weak_ptr<InstrumentBridge>> m_bridges; ///< that may not be over
  std::thread m_thread;                                   ///< the last one, which waits for the one before
};

} // namespace portico::tap
