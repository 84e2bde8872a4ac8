#pragma once

#include "drivers/ITransport.h"
#include "simulator/SimulatedInstrument.h"

#include <functional>
#include <memory>
#include <string>

namespace portico {

/// Makes the simulated instrument of a device name; a null pointer if there is none of that name.
using SimulatedInstrumentFactory =
    std::function<std::unique_ptr<simulator::SimulatedInstrument>(const std::string& device)>;

/// A simulated instrument in this process. It carries a plain stream of bytes, so that an instrument behaves here just
/// as it does when it is served over a socket.
class SimulatedTransport final : public ITransport {
public:
  /// `clock` must outlive the transport.
  SimulatedTransport(std::string device, SimulatedInstrumentFactory factory, IClock& clock);

  /// Makes a fresh instrument.
  DriverResult Open(TimePoint deadline) override;
  void Close() noexcept override;
  DriverResult Write(std::string_view bytes, TimePoint deadline) override;
  /// Waits until the instrument has an answer ready.
  Received Read(char* buffer, std::size_t size, TimePoint deadline) override;

private:
  /// Takes the next response message over into `m_response`; false if there is none by the deadline.
  bool AwaitResponse(TimePoint deadline);

  const std::string m_device;
  const SimulatedInstrumentFactory m_factory;
  IClock& m_clock;
  std::unique_ptr<simulator::SimulatedInstrument> m_instrument;
  std::string m_response;
  /// How much of `m_response` has been read.
  std::size_t m_position = 0;
};

} // namespace portico
