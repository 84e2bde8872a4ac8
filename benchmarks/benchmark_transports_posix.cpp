// The driver's write and read of a query, over each transport, against a bare loop that puts the same bytes on the same
// wire, and beside what else talks to instruments. Everything, the simulated instrument too, runs on one core; all take
// turns, and medians are compared.
//   benchmark_transports [QUERIES [ROUNDS]]

#include "benchmarks/BareProtocols.h"
#include "benchmarks/OneCore.h"
#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "drivers/SteadyClock.h"
#include "drivers/standard/StandardDriver.h"
#include "server/PseudoTerminal.h"
#include "server/SocketServer.h"
#include "simulator/connection/ServedLine.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"
#include "simulator/hislip/HislipConnection.h"
#include "simulator/vxi11/ServedVxi11.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace {

using namespace portico;
using namespace portico::simulator;
using portico::server::PseudoTerminal;
using portico::server::SocketServer;

const std::string Host = "127.0.0.1";
const std::string Query = "*IDN?";
const std::string Answer = "TOLVANE INSTRUMENTS,SIM-DMM,SIM0001,1.0";

using Samples = std::vector<double>; // microseconds

/// Asks one query, or throws.
using Asker = std::function<void()>;

/// Who takes part: connects; that ends when its turn is over.
struct Contestant {
  std::string Name;
  std::function<Asker()> Connect;
  std::size_t Bare; ///< the contestant that it is compared with
  Samples Medians = {};
};

void Expect(std::string_view answer) {
  if (answer != Answer) throw std::runtime_error("a wrong answer: " + std::string(answer));
}

Asker Bare(BareQuery query) {
  return [query = std::move(query)] { Expect(query().substr(0, Answer.size())); };
}

/// An instrument that is open for as long as somebody asks.
class OpenInstrument {
public:
  explicit OpenInstrument(const std::string& name) {
    if (m_driver->TVSCPI_init(name, 0, 0, m_session) != 0) throw std::runtime_error(name + " does not open");
  }

  void Ask() {
    std::int32_t count = 0;
    if (m_driver->TVSCPI_WriteInstrData(m_session, m_query) != 0 ||
        m_driver->TVSCPI_ReadInstrData(m_session, static_cast<std::int32_t>(m_buffer.size()), m_buffer.data(), count) !=
            0) {
      throw std::runtime_error("a query failed");
    }
    Expect({m_buffer.data(), static_cast<std::size_t>(count) - 1});
  }

private:
  drivers::SteadyClock m_clock;
  const std::shared_ptr<IInstrumentDriver> m_driver = drivers::StandardDriver({m_clock, std::chrono::seconds(5)});
  std::int32_t m_session = 0;
  const std::string m_query = Query + '\r';
  std::vector<char> m_buffer = std::vector<char>(0x100000);
};

Asker Through(const std::string& name) {
  return [instrument = std::make_shared<OpenInstrument>(name)] { instrument->Ask(); };
}

void TakeTurns(std::vector<Contestant>& all, int queries, int rounds) {
  for (int round = 0; round < rounds; ++round) {
    for (Contestant& contestant : all) {
      const auto ask = contestant.Connect();
      Samples samples;
      for (int i = 0; i < queries; ++i) {
        const auto start = std::chrono::steady_clock::now();
        ask();
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        samples.push_back(taken.count());
      }
      contestant.Medians.push_back(Median(std::move(samples)));
    }
  }
}

void Print(const std::string& name, double median, double bare) {
  std::printf("%-36s %7.2f us/query   ratio %5.2f\n", name.c_str(), median, median / bare);
}

/// What a program prints, as a number; none if it fails.
std::optional<double> Printed(const std::string& command) {
  FILE* const output = popen((command + " 2>/dev/null").c_str(), "r");
  if (output == nullptr) return {};
  double number = 0;
  const bool found = std::fscanf(output, "%lf", &number) == 1;
  return pclose(output) == 0 && found ? std::optional(number) : std::nullopt;
}

/// The median of what a program says of itself.
void PrintOther(const std::string& name, const std::string& command, double bare, int rounds,
                const std::function<double(double)>& microseconds) {
  Samples medians;
  for (int round = 0; round < rounds; ++round) {
    const auto printed = Printed(command);
    if (!printed) {
      std::printf("%-36s not installed\n", name.c_str());
      return;
    }
    medians.push_back(microseconds(*printed));
  }
  Print(name, Median(medians), bare);
}

/// One device over all wires, and the contestants on each.
class Contest {
public:
  Contest() {
    std::vector<SocketServer::Listener> listeners = {{Host, 0, ServedStream::Factory(*m_device)},
                                                     {Host, 0, ServedVxi11::Factory(*m_device)},
                                                     {Host, 0, HislipConnection::Factory(*m_device)}};
    auto all = listeners;
    all.push_back({Host, 111, ServedVxi11::PortMapperFactory([this] { return m_server->Port(1); })});
    try {
      m_server.emplace(std::move(all));
      m_hasPortMapper = true;
    } catch (const std::system_error&) {
      m_server.emplace(std::move(listeners));
    }
    m_server->Add(m_line.TakeFarEnd(), std::make_unique<ServedLine>(ServedStream::Factory(*m_device)));
  }

  std::vector<Contestant> Contestants() const {
    std::vector<Contestant> all;
    const auto add = [&all](const std::string& wire, const std::function<BareQuery()>& connect,
                            const std::string& name) {
      all.push_back({wire + ": bare loop", [connect] { return Bare(connect()); }, all.size()});
      all.push_back({wire + ": the driver", [name] { return Through(name); }, all.size() - 1});
    };
    const auto raw = m_server->Port(0);
    const auto vxi11 = m_server->Port(1);
    const auto hislip = m_server->Port(2);
    const std::string line = m_line.Name();
    add(
        "raw socket", [=] { return BareSocketQuery(raw, Query); }, RawName());
    add(
        "VXI-11", [=] { return BareVxi11Query(vxi11, Query); },
        "TCPIP::" + Host + ',' + std::to_string(vxi11) + "::INSTR");
    add(
        "HiSLIP", [=] { return BareHislipQuery(hislip, Query); },
        "TCPIP::" + Host + "::hislip0," + std::to_string(hislip) + "::INSTR");
    add(
        "serial line", [=] { return BareSerialQuery(line, Query); }, "ASRL" + line + "::INSTR");
    return all;
  }

  /// What else talks to instruments, beside the bare loops of the contestants above.
  void PrintOthers(const std::vector<Contestant>& all, int queries, int rounds) const {
    const std::string count = " " + std::to_string(queries);
    const std::string lxi = "lxi benchmark --address " + Host + " --count" + count;
    const std::string rate = " | sed -n 's/.*Result: \\([0-9.]*\\) .*/\\1/p'";
    const std::string python = "/usr/bin/python3 " VISA_QUERIES " "; // the one that Debian's packages are for
    const double raw = Median(all[0].Medians);
    const double vxi11 = Median(all[2].Medians);
    const auto perQuery = [](double queriesPerSecond) { return 1e6 / queriesPerSecond; };
    const auto asPrinted = [](double microseconds) { return microseconds; };
    PrintOther("raw socket: lxi-tools", lxi + " --raw --port " + std::to_string(m_server->Port(0)) + rate, raw, rounds,
               perQuery);
    PrintOther("raw socket: pyvisa-py", python + RawName() + " '" + Query + "'" + count, raw, rounds, asPrinted);
    if (!m_hasPortMapper) {
      std::printf("VXI-11: the others need port 111\n");
      return;
    }
    PrintOther("VXI-11: lxi-tools", lxi + rate, vxi11, rounds, perQuery);
    PrintOther("VXI-11: pyvisa-py", python + "TCPIP::" + Host + "::INSTR '" + Query + "'" + count, vxi11, rounds,
               asPrinted);
  }

  void Serve() { m_server->Run(); }

private:
  std::string RawName() const { return "TCPIP::" + Host + "::" + std::to_string(m_server->Port(0)) + "::SOCKET"; }

  const std::unique_ptr<Device> m_device = Device::Make("dmm", 1);
  PseudoTerminal m_line;
  std::optional<SocketServer> m_server;
  bool m_hasPortMapper = false; ///< at the one port where others look for it, if that is to be had
};

} // namespace

int main(int argc, char** argv) try {
  const int queries = Argument(argc, argv, 1, Part(20'000));
  const int rounds = Argument(argc, argv, 2, Part(9));
  KeepToOneCore();
  Contest contest;
  const ServingProcess server([&contest] { contest.Serve(); });
  std::vector<Contestant> all = contest.Contestants();
  TakeTurns(all, queries, rounds);
  for (const Contestant& contestant : all) {
    Print(contestant.Name, Median(contestant.Medians), Median(all[contestant.Bare].Medians));
  }
  contest.PrintOthers(all, queries, rounds);
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
