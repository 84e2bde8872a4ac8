#include "contract/DriverBenches.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/doubles/HislipInstrument.h"

namespace portico::test {
namespace {

using namespace drivers;

class HislipBench final : public DriverBench {
public:
  HislipBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_instrument(std::move(script)), m_driver(StandardTransports({}, m_clock), {m_clock, timeout, &observer}) {}

  IInstrumentDriver& Driver() override { return m_driver; }
  std::string Name() const override { return m_instrument.ResourceName(); }
  std::string CanonicalName() const override {
    return "TCPIP0::127.0.0.1::hislip0," + std::to_string(m_instrument.Port()) + "::INSTR";
  }
  std::string Place() const override { return "127.0.0.1, port " + std::to_string(m_instrument.Port()); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_instrument.WaitForReceived(bytes);
    return m_instrument.Received();
  }
  void Send(const std::string& bytes) override { m_instrument.Send(bytes); }

private:
  HislipInstrument m_instrument;
  SteadyClock m_clock;
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind HislipBenchKind() {
  return {"Hislip", MakeBench<HislipBench>, {.marksEnd = true, .recovery = TransportTraits::RecoveryKind::DeviceClear}};
}

} // namespace portico::test
