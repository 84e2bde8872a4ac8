#include "contract/DriverBenches.h"

#include "drivers/standard/StandardTransports.h"
#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedConnection.h"

namespace portico::test {
namespace {

using namespace drivers;

class SimulatedBench final : public DriverBench {
public:
  SimulatedBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_driver(StandardTransports(
                     [this, script = std::move(script)](const std::string&) {
                       auto connection = std::make_unique<ScriptedConnection>(script, m_received);
                       m_connection = connection.get();
                       return connection;
                     },
                     m_clock, &cancellation),
                 {m_clock, timeout, &observer, &cancellation}) {}

  IExtendedDriver& Driver() override { return m_driver; }
  std::string Name() const override { return "sim::dmm::instr"; }
  std::string CanonicalName() const override { return "SIM::dmm::INSTR"; }
  std::string Place() const override { return "dmm"; }
  std::string ReceivedUpTo(const std::string& /*bytes*/) override { return m_received; }
  void Send(const std::string& bytes) override { m_connection->Send(bytes); }

private:
  ManualClock m_clock;
  std::string m_received;
  ScriptedConnection* m_connection = nullptr; // the latest, as long as it is open
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind SimulatedBenchKind() { return {"Simulated", MakeBench<SimulatedBench>, {.cancels = true}}; }

} // namespace portico::test
