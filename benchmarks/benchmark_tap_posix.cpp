// A query and its answer through portico-tap, with its log, against a bare loop that asks the instrument itself, over
// raw socket, VXI-11 and HiSLIP. Everything, the simulated instrument and the tap too, runs on one core; all take
// turns, and medians are compared.
//   benchmark_tap [QUERIES [ROUNDS]]

#include "application/HostEnvironment.h"
#include "benchmarks/BareProtocols.h"
#include "benchmarks/OneCore.h"
#include "benchmarks/Part.h"
#include "benchmarks/Samples.h"
#include "document/log/CMockTimeStampServer.h"
#include "framework/errors/HuntERR.h"
#include "server/SocketServer.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"
#include "simulator/hislip/HislipConnection.h"
#include "simulator/vxi11/ServedVxi11.h"
#include "tap/TapProtocols.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>
#include <variant>
#include <vector>

#include <unistd.h>

namespace {

using namespace portico;
using server::SocketServer;

const std::string Host = "127.0.0.1";
const std::string Query = "*IDN?";

using Samples = std::vector<double>; // microseconds

struct Wire {
  const char* Name;
  BareQuery (*Ask)(std::uint16_t port, const std::string& text);
  server::ConnectionFactory (*Serve)(simulator::Instrument& instrument);
  std::string (*ResourceName)(const std::string& port);
};

const std::array Wires = {
    Wire{"raw socket", BareSocketQuery, simulator::ServedStream::Factory,
         [](const std::string& port) { return "TCPIP::127.0.0.1::" + port + "::SOCKET"; }},
    Wire{"VXI-11", BareVxi11Query, simulator::ServedVxi11::Factory,
         [](const std::string& port) { return "TCPIP::127.0.0.1," + port + "::inst0::INSTR"; }},
    Wire{"HiSLIP", BareHislipQuery, simulator::HislipConnection::Factory,
         [](const std::string& port) { return "TCPIP::127.0.0.1::hislip0," + port + "::INSTR"; }},
};

/// A tap for one wire, as the program has it.
class TapServer {
public:
  TapServer(const Wire& wire, std::uint16_t port, const std::string& log)
      : m_name(std::get<drivers::ResourceName>(drivers::ResourceName::Parse(wire.ResourceName(std::to_string(port))))),
        m_recorder({Log(log), nullptr, false, Tell}),
        m_line(tap::MakeLine(m_name, *tap::ProtocolOf(m_name), {m_server, std::chrono::seconds(5), nullptr, Tell})),
        m_place(*m_line, m_recorder) {
    m_server.Listen({Host, 0, tap::MakeFactory(m_name, *tap::ProtocolOf(m_name), m_place)});
  }

  std::uint16_t Port() const { return m_server.Port(); }
  void Serve() { m_server.Run(); }

private:
  static void Tell(const std::string& text) { std::cerr << text << '\n'; }
  static Ref<CXMLDataStore> Log(const std::string& path) {
    auto log = New<CXMLDataStore>();
    log->Initialize(FromUtf8(path).Text, true);
    return log;
  }

  const drivers::ResourceName m_name;
  SocketServer m_server;
  tap::Recorder m_recorder;
  const std::unique_ptr<tap::IInstrumentLine> m_line;
  tap::Place m_place;
};

double Measure(const Wire& wire, std::uint16_t port, int queries) {
  const BareQuery ask = wire.Ask(port, Query);
  Samples samples;
  for (int i = 0; i < queries; ++i) {
    const auto start = std::chrono::steady_clock::now();
    if (!ask().starts_with("TOLVANE")) throw std::runtime_error("a wrong answer");
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    samples.push_back(taken.count());
  }
  return Median(std::move(samples));
}

void Compare(const Wire& wire, std::uint16_t port, const std::string& log, int queries, int rounds) {
  TapServer tap(wire, port, log);
  const ServingProcess process([&tap] { tap.Serve(); });
  Samples bare;
  Samples tapped;
  for (int round = 0; round < rounds; ++round) {
    bare.push_back(Measure(wire, port, queries));
    tapped.push_back(Measure(wire, tap.Port(), queries));
  }
  const double direct = Median(std::move(bare));
  const double through = Median(std::move(tapped));
  std::printf("%-12s bare loop %7.2f us/query   through the tap %7.2f us/query   ratio %5.2f\n", wire.Name, direct,
              through, through / direct);
}

} // namespace

int main(int argc, char** argv) try {
  const int queries = Argument(argc, argv, 1, Part(5'000));
  const int rounds = Argument(argc, argv, 2, Part(9));
  KeepToOneCore();
  HostEnvironment environment;
  HuntERR::SetEnvironment(&environment);
  gTimeStamper = New<CMockTimeStampServer>();
  const auto device = simulator::Device::Make("dmm", 1);
  SocketServer instrument;
  for (const Wire& wire : Wires) instrument.Listen({Host, 0, wire.Serve(*device)});
  const ServingProcess serving([&instrument] { instrument.Run(); });
  std::string folder = (std::filesystem::temp_directory_path() / "portico-tap-XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::system_error(errno, std::generic_category(), folder);
  for (std::size_t i = 0; i < Wires.size(); ++i) {
    Compare(Wires[i], instrument.Port(i), folder + "/tap.log", queries, rounds);
  }
  std::filesystem::remove_all(folder);
  gTimeStamper = nullptr;
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
