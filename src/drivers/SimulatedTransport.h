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
  /// Takes the next response message over into `response_`; false if there is none by the deadline.
  bool AwaitResponse(TimePoint deadline);

  const std::string device_;
  const SimulatedInstrumentFactory factory_;
  IClock& clock_;
  std::unique_ptr<simulator::SimulatedInstrument> instrument_;
  std::string response_;
  /// How much of `response_` has been read.
  std::size_t position_ = 0;
};

} // namespace portico
