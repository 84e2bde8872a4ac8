#include "contract/DriverBenches.h"

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
class LoadedBench final : public DriverBench {
public:
  LoadedBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_server(std::move(script)),
        m_timeout("PORTICO_DRIVER_TIMEOUT", std::to_string(timeout.count()).c_str()),
        m_driver(StandardDriver({m_clock}),
                 std::make_shared<LoadedDriver>(std::get<DriverFunctions>(LoadDriverLibrary(PORTICO_DRIVER_LIBRARY)),
                                                &observer, nullptr)) {}

  IInstrumentDriver& Driver() override { return m_driver; }
  std::string Name() const override { return m_server.ResourceName(); }
  std::string CanonicalName() const override {
    return "TCPIP0::127.0.0.1::" + std::to_string(m_server.Port()) + "::SOCKET";
  }
  std::string Place() const override { return "127.0.0.1, port " + std::to_string(m_server.Port()); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_server.WaitForReceived(bytes);
    return m_server.Received();
  }
  void Send(const std::string& bytes) override { m_server.Send(bytes); }

private:
  ScriptedServer m_server;
  EnvironmentVariable m_timeout;
  SteadyClock m_clock;
  DriverRouter m_driver;
};

} // namespace

DriverBenchKind LoadedBenchKind() { return {"Loaded", MakeBench<LoadedBench>, {.tells = false}}; }

} // namespace portico::test
