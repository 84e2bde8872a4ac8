#include "contract/DriverBenches.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/doubles/Vxi11Instrument.h"

namespace portico::test {
namespace {

using namespace drivers;

class Vxi11Bench final : public DriverBench {
public:
  Vxi11Bench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_instrument(std::move(script)), m_driver(StandardTransports({}, m_clock), {m_clock, timeout, &observer}) {}

  IInstrumentDriver& Driver() override { return m_driver; }
  std::string Name() const override { return m_instrument.ResourceName(); }
  std::string CanonicalName() const override {
    return "TCPIP0::127.0.0.1," + std::to_string(m_instrument.Port()) + "::inst0::INSTR";
  }
  std::string Place() const override { return "127.0.0.1, port " + std::to_string(m_instrument.Port()); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_instrument.WaitForReceived(bytes);
    return m_instrument.Received();
  }
  void Send(const std::string& bytes) override { m_instrument.Send(bytes); }

private:
  Vxi11Instrument m_instrument;
  SteadyClock m_clock;
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind Vxi11BenchKind() {
  return {"Vxi11", MakeBench<Vxi11Bench>, {.marksEnd = true, .recovery = TransportTraits::RecoveryKind::DeviceClear}};
}

} // namespace portico::test
