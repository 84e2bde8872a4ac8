#include "contract/DriverBenches.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/doubles/ScriptedServer.h"

namespace portico::test {
namespace {

using namespace drivers;

class SocketBench final : public DriverBench {
public:
  SocketBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_server(std::move(script)), m_driver(StandardTransports({}, m_clock), {m_clock, timeout, &observer}) {}

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
  SteadyClock m_clock;
  InstrumentDriver m_driver;
};

} // namespace

DriverBenchKind SocketBenchKind() { return {"Socket", MakeBench<SocketBench>}; }

} // namespace portico::test
