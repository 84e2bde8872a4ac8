#include "simulator/connection/ServedStream.h"
#include "simulator/devices/Device.h"
#include "simulator/server/SocketServer.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <csignal>
#include <cstdint>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>

namespace {

using portico::simulator::Device;
using portico::simulator::ServedStream;
using portico::simulator::SocketServer;

constexpr int UsageError = 2;

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

} // namespace

int main(int argc, char** argv) {
  SocketServer::Listener raw;
  std::string kind = "dmm";
  std::uint64_t seed = 1;
  CLI::App app("Serves a simulated instrument over TCP, one for all connections.", "portico-sim");
  app.set_version_flag("--version", "portico-sim " PORTICO_VERSION);
  app.add_option("--device", kind, "The kind of instrument: dmm, psu or scope")->capture_default_str();
  app.add_option("--port", raw.Port, "The TCP port; 0 picks a free one")
      ->check(CLI::Range(0, 65535))
      ->capture_default_str();
  app.add_option("--bind", raw.Address, "The IPv4 or IPv6 address to listen on")->capture_default_str();
  app.add_option("--seed", seed, "The start of all that looks random")->check(WholeNumber)->capture_default_str();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error);
    return Complain(error.what(), "try portico-sim --help");
  }

  const std::unique_ptr<Device> device = Device::Make(kind, seed);
  if (!device) {
    return Complain("'" + kind + "' is not a device; there are dmm, psu and scope", "try portico-sim --help");
  }
  try {
    raw.Factory = ServedStream::Factory(*device);
    SocketServer server({raw});
    running = &server;
    std::signal(SIGINT, StopServer);
    std::signal(SIGTERM, StopServer);
    std::cout << "listening on " << server.Endpoint() << std::endl;
    server.Run();
    std::signal(SIGINT, SIG_IGN); // the handlers must not outlive the server
    std::signal(SIGTERM, SIG_IGN);
  } catch (const std::invalid_argument& error) {
    return Complain(error.what(), "try portico-sim --help");
  } catch (const std::system_error& error) {
    return Complain(error.what(), "give another --port, 0 for a free one, or another --bind");
  }
  return 0;
}
