#include "contract/DriverBenches.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/doubles/SerialInstrument.h"

namespace portico::test {
namespace {

using namespace drivers;

/// Two lines, since each lets one session in.
class SerialBench final : public DriverBench {
public:
  SerialBench(const InstrumentScript& script, std::chrono::milliseconds timeout)
      : m_first(script),
        m_second(script),
        m_driver(StandardTransports({}, m_clock, &cancellation), {m_clock, timeout, &observer, &cancellation}) {}

  IExtendedDriver& Driver() override { return m_driver; }
  std::string Name() const override { return "asrl" + m_first.Path() + "::115200,8n1,none::instr"; }
  std::string SecondName() const override { return m_second.ResourceName(); }
  std::string CanonicalName() const override { return "ASRL" + m_first.Path() + "::115200,8N1::INSTR"; }
  std::string Place() const override { return m_first.Path(); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_first.WaitForReceived(bytes);
    return m_first.Received();
  }
  void Send(const std::string& bytes) override {
    m_first.Send(bytes);
    m_first.WaitForSilence();
  }
  void AwaitReaction(const std::string& bytes) override {
    m_first.WaitForReceived(bytes);
    m_first.WaitForSilence();
  }

private:
  SerialInstrument m_first;
  SerialInstrument m_second;
  SteadyClock m_clock;
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind SerialBenchKind() {
  return {"Serial", MakeBench<SerialBench>, {.recovery = TransportTraits::RecoveryKind::Listening, .cancels = true}};
}

} // namespace portico::test
