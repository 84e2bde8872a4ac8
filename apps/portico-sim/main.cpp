#include "drivers/sockets/TcpTransport.h"
#include "drivers/vxi11/PortMapping.h"
#include "mdns/Announcement.h"
#include "recordings/Recording.h"
#include "server/PseudoTerminal.h"
#include "server/SocketServer.h"
#include "simulator/connection/FaultyConnection.h"
#include "simulator/connection/ServedLine.h"
#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"
#include "simulator/hislip/HislipConnection.h"
#include "simulator/vxi11/ServedVxi11.h"
#include "wire/PortMapper.h"
#include "wire/Vxi11.h"

#include <CLI/CLI.hpp>

#include <array>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace {

using namespace portico::simulator;
namespace server = portico::server;
using portico::drivers::DriverResult;
using portico::drivers::ITransport;
using portico::drivers::PortMapping;
using portico::drivers::TcpTransport;
using portico::mdns::Announcement;
using portico::server::PseudoTerminal;
using portico::server::SocketServer;

constexpr int UsageError = 2;

/// What is served on a TCP port of its own.
struct Protocol {
  const char* Name; ///< stands behind the address in the line that tells it; the raw socket has none
  const char* Option;
  const char* Help;
  std::optional<std::uint16_t> DefaultPort; ///< without one it is off unless asked for
  server::ConnectionFactory (*Factory)(Instrument&);
};

constexpr std::array Protocols = {
    Protocol{"", "--port", "The TCP port of the raw socket; 0 picks a free one", SocketServer::StandardPort,
             ServedStream::Factory},
    Protocol{
        "hislip", "--hislip", "Also speak HiSLIP, on this TCP port; 0 picks a free one", {}, HislipConnection::Factory},
    Protocol{"vxi11", "--vxi11", "Also speak VXI-11, on this TCP port; 0 picks a free one", {}, ServedVxi11::Factory},
};

struct Options {
  std::string Kind = "dmm";
  std::optional<std::string> Log; ///< to be replayed in place of a device of that kind
  portico::recordings::RecordingOptions Recording;
  std::string Address = "127.0.0.1";
  std::uint64_t Seed = 1;
  std::array<std::optional<std::uint16_t>, Protocols.size()> Ports; ///< of the protocols
  bool Serial = false;
  bool Announce = false;
  bool PortMap = false;
  std::vector<std::string> Faults;
};

SocketServer* running = nullptr;

void StopServer(int /*signal*/) { running->Stop(); }

int Complain(const std::string& what, const std::string& hint) {
  std::cerr << "portico-sim: " << what << "; " << hint << '\n';
  return UsageError;
}

/// The option parser alone would take -1, and what is too large, for the largest number.
std::string WholeNumber(const std::string& text) {
  std::uint64_t value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool valid = result.ec == std::errc() && result.ptr == text.data() + text.size();
  return valid ? "" : "'" + text + "' is not a whole number from 0 to 18446744073709551615";
}

void AddTo(CLI::App& app, Options& options) {
  app.set_version_flag("--version", "portico-sim " PORTICO_VERSION);
  auto* device =
      app.add_option("--device", options.Kind, "The kind of instrument: dmm, psu or scope")->capture_default_str();
  auto* replay = app.add_option("--replay", options.Log, "Answer as the instrument of this log did")
                     ->type_name("LOG")
                     ->excludes(device);
  app.add_option("--session", options.Recording.Session, "Replay that session of the log alone, from 1")
      ->type_name("N")
      ->check(CLI::PositiveNumber)
      ->needs(replay);
  app.add_flag_callback(
         "--strict", [&options] { options.Recording.Order = ReplayedInstrument::Order::Demanded; },
         "Demand the log's order: -200 where it is left")
      ->needs(replay);
  for (std::size_t i = 0; i < Protocols.size(); ++i) {
    const Protocol& protocol = Protocols[i];
    options.Ports[i] = protocol.DefaultPort;
    auto* port = app.add_option(protocol.Option, options.Ports[i], protocol.Help)->check(CLI::Range(0, 65535));
    if (protocol.DefaultPort) port->default_str(std::to_string(*protocol.DefaultPort));
  }
  app.add_flag("--serial", options.Serial, "Also serve a serial line, a pseudo-terminal whose name is printed");
  app.add_flag("--portmap", options.PortMap,
               "Have the portmapper of this machine tell where VXI-11 is; where none runs, be it, at port 111")
      ->needs(app.get_option("--vxi11"));
  app.add_option(
         "--fault", options.Faults,
         "Misbehave from the start, as a command of the SIMulator subsystem does: 'RATE 0.01,LATE,DROP'; may be "
         "given again")
      ->allow_extra_args(false);
  app.add_flag("--announce", options.Announce, "Tell the local network of it by mDNS, for which avahi must run");
  app.add_option("--bind", options.Address, "The IPv4 or IPv6 address to listen on")->capture_default_str();
  app.add_option("--seed", options.Seed, "The start of all that looks random")
      ->check(WholeNumber)
      ->capture_default_str();
}

/// The type of service that the local network knows a protocol by.
std::string ServiceType(const std::string& protocol) {
  if (protocol.empty()) return "_scpi-raw._tcp";
  return protocol == "vxi11" ? "_vxi-11._tcp" : "_" + protocol + "._tcp";
}

/// What is known of the instrument before it is asked.
Announcement::Content Introduction(const Instrument& instrument) {
  constexpr std::array keys = {"Manufacturer", "Model", "SerialNumber", "FirmwareVersion"};
  Announcement::Content content{{}, {}, {"txtvers=1"}};
  std::istringstream identification{std::string(instrument.Identification())};
  std::string field;
  for (std::size_t i = 0; i < keys.size() && std::getline(identification, field, ','); ++i) {
    content.Text.push_back(std::string(keys[i]) + "=" + field);
    const bool isName = i == 1 || i == 2;
    if (isName) content.Name += (content.Name.empty() ? "" : " ") + field;
  }
  if (content.Name.empty()) content.Name = "Recorded instrument"; // which nobody had asked for its own
  return content;
}

/// Tells the local network what the server listens on; `names` are those of its listeners' protocols. Who finds VXI-11
/// there asks the portmapper for its port, if that knows it.
std::unique_ptr<Announcement> Announce(const Instrument& instrument, const SocketServer& server,
                                       const std::vector<std::string>& names, const Options& options) {
  Announcement::Content content = Introduction(instrument);
  for (std::size_t i = 0; i < names.size(); ++i) {
    const bool mapped = options.PortMap && names[i] == "vxi11";
    const std::uint16_t port = mapped ? portico::wire::PortMapper::Port : server.Port(i);
    content.Services.push_back({ServiceType(names[i]), options.Address, port});
  }
  return std::make_unique<Announcement>(
      std::move(content),
      Announcement::News{
          [](const std::string& name) { std::cout << "announced as " << name << std::endl; },
          [](const std::string& why) { std::cerr << "portico-sim: not announced: " << why << std::endl; }});
}

std::unique_ptr<ITransport> Connect(const std::string& host, std::uint16_t port) {
  return std::make_unique<TcpTransport>(host, port);
}

TimePoint Soon() { return std::chrono::steady_clock::now() + std::chrono::seconds(5); }

/// What keeps it from serving as it was asked to, and what can be done about it.
class Obstacle : public std::runtime_error {
public:
  Obstacle(const std::string& what, std::string hint) : std::runtime_error(what), Hint(std::move(hint)) {}

  const std::string Hint;
};

/// Does what the system may refuse.
template <typename Action>
auto OrElse(const std::string& hint, Action action) {
  try {
    return action();
  } catch (const std::system_error& error) {
    throw Obstacle(error.what(), hint);
  }
}

/// How clients that ask the portmapper of this machine find VXI-11.
class PortMap {
public:
  /// Looks whether a portmapper runs.
  PortMap() : m_runs(Connect("127.0.0.1", portico::wire::PortMapper::Port)->Open(Soon()).Succeeded()) {}
  PortMap(const PortMap&) = delete;
  PortMap& operator=(const PortMap&) = delete;

  /// VXI-11 is at that port. Where no portmapper runs the server becomes it, by a listener more: true. Throws Obstacle.
  bool Tell(std::uint16_t corePort, SocketServer& server, const std::string& address) {
    if (m_runs) {
      const DriverResult result = m_mapping.Set(corePort, Soon());
      if (result.Succeeded()) return false;
      throw Obstacle("cannot register VXI-11: " + ReasonFor(result), "see to the portmapper, or leave out --portmap");
    }
    OrElse("leave out --portmap, which needs port 111, or give another --bind", [&] {
      server.Listen(
          {address, portico::wire::PortMapper::Port, ServedVxi11::PortMapperFactory([corePort] { return corePort; })});
    });
    return true;
  }

private:
  const bool m_runs;
  PortMapping m_mapping{Connect, portico::wire::Vxi11::CoreProgram, portico::wire::Vxi11::Version};
};

/// Tells where it listens once it does, and serves until SIGINT or SIGTERM.
void Serve(Instrument& instrument, const Options& options) {
  std::optional<PortMap> portMap;
  if (options.PortMap) portMap.emplace();
  SocketServer server;
  std::vector<std::string> names;
  std::uint16_t vxi11Port = 0;
  for (std::size_t i = 0; i < Protocols.size(); ++i) {
    if (!options.Ports[i]) continue;
    OrElse("give another " + std::string(Protocols[i].Option) + ", 0 for a free one, or another --bind", [&] {
      auto factory = FaultyConnection::Factory(Protocols[i].Factory(instrument), instrument);
      server.Listen({options.Address, *options.Ports[i], std::move(factory)});
    });
    names.emplace_back(Protocols[i].Name);
    if (names.back() == "vxi11") vxi11Port = server.Port(names.size() - 1);
  }
  const bool isPortMapper = portMap && portMap->Tell(vxi11Port, server, options.Address);
  std::optional<PseudoTerminal> line;
  if (options.Serial) {
    OrElse("leave out --serial", [&line] { line.emplace(); });
    server.Add(line->TakeFarEnd(),
               std::make_unique<ServedLine>(FaultyConnection::Factory(ServedStream::Factory(instrument), instrument)));
  }
  running = &server;
  std::signal(SIGINT, StopServer);
  std::signal(SIGTERM, StopServer);
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::cout << "listening on " << server.Endpoint(i) << (names[i].empty() ? "" : " ") << names[i] << std::endl;
  }
  if (isPortMapper) std::cout << "listening on " << server.Endpoint(names.size()) << " portmap" << std::endl;
  if (line) std::cout << "listening on " << line->Name() << " serial" << std::endl;
  const auto announcement =
      options.Announce ? Announce(instrument, server, names, options) : std::unique_ptr<Announcement>();
  server.Run();
  std::signal(SIGINT, SIG_IGN); // the handlers must not outlive the server
  std::signal(SIGTERM, SIG_IGN);
}

/// A null pointer, and told, if there is no such kind.
std::unique_ptr<Instrument> MakeDevice(const Options& options) {
  std::unique_ptr<Instrument> device = Device::Make(options.Kind, options.Seed);
  if (!device) {
    Complain("'" + options.Kind + "' is not a device; there are dmm, psu and scope", "try portico-sim --help");
  }
  return device;
}

/// A null pointer, and told, if the log cannot be replayed.
std::unique_ptr<Instrument> MakeReplay(const Options& options) {
  auto wanted = options.Recording;
  wanted.Seed = options.Seed;
  auto [instrument, fault] = portico::recordings::ReadRecording(*options.Log, wanted);
  if (!instrument) {
    Complain("'" + *options.Log + "' cannot be replayed: " + fault, "see what portico-log show says of it");
  } else if (!fault.empty()) {
    std::cerr << "portico-sim: '" << *options.Log << "': " << fault << "; the rest is replayed" << std::endl;
  }
  return std::move(instrument);
}

} // namespace

int main(int argc, char** argv) {
  Options options;
  CLI::App app("Serves a simulated instrument, one for all connections, over TCP and other wires.", "portico-sim");
  AddTo(app, options);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    return Complain(error.what(), "try portico-sim --help");
  }

  const std::unique_ptr<Instrument> instrument = options.Log ? MakeReplay(options) : MakeDevice(options);
  if (!instrument) return UsageError;
  for (const std::string& fault : options.Faults) {
    const std::string error = instrument->CarryOut("SIMulator:" + fault);
    if (error.front() == '0') continue;
    const std::string complaint = "'" + fault + "' is no fault: ";
    return Complain(complaint + error, "give a command of the SIMulator subsystem");
  }
  try {
    Serve(*instrument, options);
  } catch (const std::invalid_argument& error) {
    return Complain(error.what(), "try portico-sim --help");
  } catch (const Obstacle& obstacle) {
    return Complain(obstacle.what(), obstacle.Hint);
  } catch (const std::runtime_error& error) {
    return Complain(error.what(), "start it again");
  }
  return 0;
}
