#pragma once

#include "contract/DriverBench.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"

namespace portico::test {

/// A bench whose instrument is a double on a port of this machine.
template <typename Instrument>
class NetworkBench : public DriverBench {
public:
  NetworkBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_instrument(std::move(script)),
        m_driver(drivers::StandardTransports({}, m_clock, &cancellation),
                 {m_clock, timeout, &observer, &cancellation}) {}

  IInstrumentDriver& Driver() override { return m_driver; }
  std::string Name() const override { return m_instrument.ResourceName(); }
  std::string Place() const override { return "127.0.0.1, port " + Port(); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_instrument.WaitForReceived(bytes);
    return m_instrument.Received();
  }
  void Send(const std::string& bytes) override { m_instrument.Send(bytes); }

protected:
  std::string Port() const { return std::to_string(m_instrument.Port()); }

private:
  Instrument m_instrument;
  drivers::SteadyClock m_clock;
  drivers::InstrumentDriver m_driver;
};

} // namespace portico::test
