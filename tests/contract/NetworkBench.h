#pragma once

#include "contract/DriverBench.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"

#include <utility>

namespace portico::test {

/// A bench whose instrument is a double on a port of this machine, whichever driver reaches it.
template <typename Instrument>
class PortBench : public DriverBench {
public:
  explicit PortBench(InstrumentScript script) : m_instrument(std::move(script)) {}

  std::string Name() const override { return m_instrument.ResourceName(); }
  std::string Place() const override { return "127.0.0.1, port " + Port(); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_instrument.WaitForReceived(bytes);
    return m_instrument.Received();
  }
  void Send(const std::string& bytes) override { m_instrument.Send(bytes); }

protected:
  std::string Port() const { return std::to_string(m_instrument.Port()); }

  Instrument m_instrument;
};

/// The real time, but for the next call that begins in a hurry, which reckons its deadline from a moment before.
class HurryingClock final : public drivers::IClock {
public:
  /// How much more time all other calls have.
  static constexpr auto Grace = std::chrono::milliseconds(5000);

  void Hurry() { m_lead = Grace; }
  drivers::TimePoint Now() const override { return m_clock.Now() - std::exchange(m_lead, {}); }
  void SleepUntil(drivers::TimePoint moment) override { m_clock.SleepUntil(moment); }

private:
  drivers::SteadyClock m_clock;
  mutable std::chrono::milliseconds m_lead{};
};

/// The same with the program's own transports.
template <typename Instrument>
class NetworkBench : public PortBench<Instrument> {
public:
  NetworkBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : PortBench<Instrument>(std::move(script)),
        m_driver(drivers::StandardTransports({}, m_clock, &this->cancellation),
                 {m_clock, timeout + HurryingClock::Grace, &this->observer, &this->cancellation}) {}

  IExtendedDriver& Driver() override { return m_driver; }
  void Hurry() override { m_clock.Hurry(); }

private:
  HurryingClock m_clock;
  drivers::InstrumentDriver m_driver;
};

} // namespace portico::test
