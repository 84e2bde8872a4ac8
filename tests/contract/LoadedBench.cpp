#include "contract/DriverBenches.h"
#include "contract/NetworkBench.h"

#include "drivers/SteadyClock.h"
#include "drivers/loaded/LoadedDriver.h"
#include "drivers/standard/DriverRouter.h"
#include "drivers/standard/StandardDriver.h"
#include "support/EnvironmentVariable.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

using namespace drivers;

/// Our own transports as a library, which the program has loaded.
class LoadedBench final : public PortBench<ScriptedServer> {
public:
  LoadedBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : PortBench(std::move(script)),
        m_timeout("PORTICO_DRIVER_TIMEOUT", std::to_string(timeout.count()).c_str()),
        m_driver(StandardDriver({m_clock}),
                 std::make_shared<LoadedDriver>(std::get<DriverFunctions>(LoadDriverLibrary(PORTICO_DRIVER_LIBRARY)),
                                                &observer, nullptr)) {}

  IExtendedDriver& Driver() override { return m_driver; }
  void Send(const std::string& bytes) override {
    m_instrument.Send(bytes);
    m_instrument.WaitForSilence();
  }
  void AwaitReaction(const std::string& bytes) override {
    m_instrument.WaitForReceived(bytes);
    m_instrument.WaitForSilence();
  }
  std::string CanonicalName() const override { return "TCPIP0::127.0.0.1::" + Port() + "::SOCKET"; }

private:
  EnvironmentVariable m_timeout;
  SteadyClock m_clock;
  DriverRouter m_driver;
};

} // namespace

DriverBenchKind LoadedBenchKind() { return {"Loaded", MakeBench<LoadedBench>, {.tells = false, .isExtended = false}}; }

} // namespace portico::test
