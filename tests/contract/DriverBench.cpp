#include "contract/DriverBench.h"

#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardTransports.h"
#include "support/doubles/ManualClock.h"
#include "support/doubles/ScriptedConnection.h"
#include "support/doubles/ScriptedServer.h"
#include "support/doubles/SerialInstrument.h"

#include <array>

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

private:
  ScriptedServer m_server;
  SteadyClock m_clock;
  InstrumentDriver m_driver;
};

/// Two lines, since each lets one session in.
class SerialBench final : public DriverBench {
public:
  SerialBench(const InstrumentScript& script, std::chrono::milliseconds timeout)
      : m_first(script), m_second(script), m_driver(StandardTransports({}, m_clock), {m_clock, timeout, &observer}) {}

  IInstrumentDriver& Driver() override { return m_driver; }
  std::string Name() const override { return "asrl" + m_first.Path() + "::115200,8n1,none::instr"; }
  std::string SecondName() const override { return m_second.ResourceName(); }
  std::string CanonicalName() const override { return "ASRL" + m_first.Path() + "::115200,8N1::INSTR"; }
  std::string Place() const override { return m_first.Path(); }
  std::string ReceivedUpTo(const std::string& bytes) override {
    m_first.WaitForReceived(bytes);
    return m_first.Received();
  }

private:
  SerialInstrument m_first;
  SerialInstrument m_second;
  SteadyClock m_clock;
  InstrumentDriver m_driver;
};

class SimulatedBench final : public DriverBench {
public:
  SimulatedBench(InstrumentScript script, std::chrono::milliseconds timeout)
      : m_driver(StandardTransports(
                     [this, script = std::move(script)](const std::string&) {
                       return std::make_unique<ScriptedConnection>(script, m_received);
                     },
                     m_clock),
                 {m_clock, timeout, &observer}) {}

  IInstrumentDriver& Driver() override { return m_driver; }
  std::string Name() const override { return "sim::dmm::instr"; }
  std::string CanonicalName() const override { return "SIM::dmm::INSTR"; }
  std::string Place() const override { return "dmm"; }
  std::string ReceivedUpTo(const std::string& /*bytes*/) override { return m_received; }

private:
  ManualClock m_clock;
  std::string m_received;
  InstrumentDriver m_driver;
};

template <typename Bench>
std::unique_ptr<DriverBench> Make(InstrumentScript script, std::chrono::milliseconds timeout) {
  return std::make_unique<Bench>(std::move(script), timeout);
}

} // namespace

std::vector<DriverBenchKind> AllDriverBenches() {
  return {{"Socket", Make<SocketBench>}, {"Serial", Make<SerialBench>}, {"Simulated", Make<SimulatedBench>}};
}

void DriverContract::Start(InstrumentScript script, std::chrono::milliseconds timeout) {
  bench = GetParam().make(std::move(script), timeout);
  session = Open();
  ASSERT_GT(session, 0);
}

std::int32_t DriverContract::Open(const std::string& name) {
  std::int32_t opened = 0;
  EXPECT_EQ(Driver().TVSCPI_init(name, 0, 0, opened), Success);
  return opened;
}

ReadOutcome DriverContract::Read(std::int32_t size) {
  // One byte more than the driver is told of, to see that it leaves it alone.
  std::string buffer(static_cast<std::size_t>(size) + 1, '~');
  ReadOutcome outcome;
  outcome.count = -1;
  outcome.status = Driver().TVSCPI_ReadInstrData(session, size, buffer.data(), outcome.count);
  EXPECT_EQ(buffer.back(), '~');
  EXPECT_LE(outcome.count, size);
  outcome.bytes = buffer.substr(0, static_cast<std::size_t>(outcome.count));
  return outcome;
}

std::string DriverContract::Query(const std::string& command) {
  EXPECT_EQ(Write(command + "\r"), Success);
  ReadOutcome outcome = Read();
  EXPECT_EQ(outcome.status, Success) << command;
  if (!outcome.bytes.empty()) outcome.bytes.pop_back();
  return outcome.bytes;
}

std::string DriverContract::Message(std::int32_t status, std::int32_t ofSession) {
  std::array<char, ErrorMessageBufferSize + 1> buffer = {};
  buffer.fill('~');
  EXPECT_EQ(Driver().TVSCPI_error_message(ofSession, status, buffer.data()), Success);
  EXPECT_EQ(buffer.back(), '~');
  return buffer.data();
}

} // namespace portico::test
