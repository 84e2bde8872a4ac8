#pragma once

#include "simulator/connection/DeviceRack.h"

#include <memory>
#include <string>

namespace portico::simulator {

/// One client's way to a program's simulated instruments. That of a log is the client's own: it begins at the log's
/// beginning, and is found as it was left when the client connects anew. A copy is another client, unless it is made of
/// one that has connected.
class RackClient {
public:
  explicit RackClient(std::shared_ptr<DeviceRack> rack) : m_rack(std::move(rack)) {}

  /// Connects to the instrument of that name; a null pointer if there is none. Raises `NoInstrument`. The client must
  /// outlive the connection.
  std::unique_ptr<SimulatedConnection> operator()(const std::string& name);

private:
  std::shared_ptr<DeviceRack> m_rack;
  std::string m_name;
  std::shared_ptr<Instrument> m_replay; ///< of that name
};

} // namespace portico::simulator
