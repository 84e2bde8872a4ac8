#pragma once

#include "drivers/ITransport.h"
#include "simulator/status/SimulatedConnection.h"
#include "system/Cancellation.h"

#include <functional>
#include <memory>
#include <string>

namespace portico::drivers {

/// Connects to the simulated instrument of a device name; a null pointer if there is none of that name. Raises
/// `simulator::NoInstrument` if there could be one. The instruments live as long as the function, of which each
/// transport has a copy.
using SimulatorConnector = std::function<std::unique_ptr<simulator::SimulatedConnection>(const std::string& device)>;

/// A simulated instrument in this process. It carries a plain stream of bytes, so that an instrument behaves here just
/// as it does when it is served over a socket.
class SimulatedTransport final : public ITransport {
public:
  /// `clock` must outlive the transport, and so must `cancellation`, which may be null.
  SimulatedTransport(std::string device, SimulatorConnector connect, IClock& clock,
                     const system::Cancellation* cancellation = nullptr);

  /// Makes a fresh connection; the instrument is as the last one left it.
  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  /// Waits until the instrument has an answer ready.
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;

private:
  /// Takes the next response message over into `m_response`.
  DriverResult AwaitResponse(TimePoint deadline);

  const std::string m_device;
  const SimulatorConnector m_connect;
  IClock& m_clock;
  const system::Cancellation* const m_cancellation;
  std::unique_ptr<simulator::SimulatedConnection> m_connection;
  std::string m_response;
  /// How much of `m_response` has been read.
  std::size_t m_position = 0;
};

} // namespace portico::drivers
