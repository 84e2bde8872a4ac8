#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardDriver.h"
#include "server/SocketServer.h"
#include "simulator/connection/FaultyConnection.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"
#include "simulator/hislip/HislipConnection.h"
#include "simulator/vxi11/ServedVxi11.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace portico::test {
namespace {

using std::chrono::milliseconds;
using namespace simulator;
using server::SocketServer;

/// How much of it there is. The environment's PORTICO_FAULT_RUN, a number of queries, asks for the real one; the test
/// has patience with a machine that has other work.
struct Extent {
  int Queries = 300;
  std::string Rate = "0.05";
  milliseconds Timeout = milliseconds(250);
  std::string Lateness = "0.3";
};

Extent Wanted() {
  const char* queries = std::getenv("PORTICO_FAULT_RUN");
  return queries == nullptr ? Extent() : Extent{std::atoi(queries), "0.01", milliseconds(20), "0.03"};
}

/// A way to the instrument: by a network protocol, whose port its name tells, or in process.
struct Transport {
  const char* Name;
  const char* Faults;
  server::ConnectionFactory (*Factory)(Instrument&);
  std::string (*ResourceName)(const std::string& port);
};

void PrintTo(const Transport& transport, std::ostream* out) { *out << transport.Name; }

/// A device that is served in a thread of its own.
class ServedDevice {
public:
  explicit ServedDevice(server::ConnectionFactory (*factory)(Instrument&))
      : m_server({{"127.0.0.1", 0, FaultyConnection::Factory(factory(*m_device), *m_device)},
                  {"127.0.0.1", 0, ServedStream::Factory(*m_device)}}) {}
  ~ServedDevice() {
    m_server.Stop();
    m_thread.join();
  }
  ServedDevice(const ServedDevice&) = delete;
  ServedDevice& operator=(const ServedDevice&) = delete;

  std::string Port() const { return std::to_string(m_server.Port(0)); }
  /// Of a raw socket to the same device.
  std::string PlainPort() const { return std::to_string(m_server.Port(1)); }

private:
  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  SocketServer m_server;
  std::thread m_thread{[this] { m_server.Run(); }};
};

std::string SocketName(const std::string& port) { return "TCPIP::127.0.0.1::" + port + "::SOCKET"; }

std::string Vxi11Name(const std::string& port) { return "TCPIP::127.0.0.1," + port + "::INSTR"; }
std::string HislipName(const std::string& port) { return "TCPIP::127.0.0.1::hislip0," + port + "::INSTR"; }

/// One open instrument.
class Session {
public:
  Session(IInstrumentDriver& driver, const std::string& name) : m_driver(driver) {
    EXPECT_EQ(m_driver.TVSCPI_init(name, 0, 0, m_session), 0) << name;
  }
  ~Session() { m_driver.TVSCPI_close(m_session); }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  bool Send(const std::string& text) { return m_driver.TVSCPI_WriteInstrData(m_session, text + '\r') == 0; }
  std::optional<std::string> Ask(const std::string& query) {
    std::int32_t count = 0;
    if (!Send(query) || m_driver.TVSCPI_ReadInstrData(m_session, BufferSize, m_buffer.data(), count) != 0) return {};
    return std::string(m_buffer.data(), static_cast<std::size_t>(count) - 1);
  }

private:
  static constexpr std::int32_t BufferSize = 65536;

  IInstrumentDriver& m_driver;
  std::int32_t m_session = 0;
  std::vector<char> m_buffer = std::vector<char>(BufferSize);
};

/// Whether it could be an answer, this one or another.
bool IsNumber(const std::string& text) { return !text.empty() && text.find_first_not_of("0123456789") == text.npos; }

class FaultRun : public testing::TestWithParam<Transport> {};

TEST_P(FaultRun, NoAnswerIsTakenForAnothersAndNoMoreIsLostThanAFaultCosts) {
  const Transport& transport = GetParam();
  const Extent extent = Wanted();
  std::optional<ServedDevice> served;
  if (transport.Factory != nullptr) served.emplace(transport.Factory);
  drivers::SteadyClock clock;
  const auto driver = drivers::StandardDriver({clock, extent.Timeout});
  Session instrument(*driver, transport.ResourceName(served ? served->Port() : ""));
  Session control(*driver, served ? SocketName(served->PlainPort()) : transport.ResourceName(""));
  ASSERT_TRUE(instrument.Send("SIM:LAT " + extent.Lateness + ";RATE " + extent.Rate + ',' + transport.Faults));

  int lost = 0;
  for (int i = 1; i <= extent.Queries; ++i) {
    const auto answer = instrument.Ask("SIM:ECHO? " + std::to_string(i));
    if (answer == std::to_string(i)) continue;
    ++lost;
    ASSERT_FALSE(answer && IsNumber(*answer)) << "query " << i << " got " << *answer;
  }

  ASSERT_TRUE(control.Send("SIM:RATE 0"));
  const int faulted = std::stoi(control.Ask("SIM:COUN?").value_or("0"));
  EXPECT_GT(faulted, 0);
  EXPECT_GT(lost, 0);
  EXPECT_LE(lost, 2 * faulted);
  std::cout << transport.Name << ": of " << extent.Queries << " queries " << faulted << " faulted, " << lost
            << " lost, none wrong\n";
}

INSTANTIATE_TEST_SUITE_P(
    Transports, FaultRun,
    testing::Values(Transport{"Simulated", "LATE,LOST,ENDL", nullptr,
                              [](const std::string&) { return std::string("SIM::dmm::INSTR"); }},
                    Transport{"Socket", "LATE,LOST,ENDL,STR,HALF,DROP", ServedStream::Factory, SocketName},
                    Transport{"Vxi11", "LATE,LOST,ENDL,STR,HALF,DROP,NUMB", ServedVxi11::Factory, Vxi11Name},
                    Transport{"Hislip", "LATE,LOST,ENDL,STR,HALF,DROP,NUMB", HislipConnection::Factory, HislipName}),
    [](const auto& test) { return std::string(test.param.Name); });

} // namespace
} // namespace portico::test
