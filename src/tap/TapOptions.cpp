#include "tap/TapOptions.h"

#include "framework/shared/Application.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace portico::tap {
namespace {

constexpr int ShortestTimeout = 1;      // milliseconds
constexpr int LongestTimeout = 3600000; // milliseconds
constexpr int UsualTimeout = 5000;      // milliseconds

using Request = std::variant<TapOptions, HelpText, UsageError>;

using Ports = std::array<std::optional<std::uint16_t>, Protocols.size()>;

/// One of the protocols.
std::optional<UsageError> ChoosePort(TapOptions& options, const Ports& ports) {
  const auto isGiven = [](const auto& port) { return port.has_value(); };
  if (std::count_if(ports.begin(), ports.end(), isGiven) != 1) {
    return UsageError{"use one of --listen, --vxi11 and --hislip, with the port to listen on"};
  }
  const auto chosen = std::find_if(ports.begin(), ports.end(), isGiven);
  options.Client = static_cast<Protocol>(chosen - ports.begin());
  options.Port = **chosen;
  return {};
}

} // namespace

std::optional<Protocol> ProtocolOf(const drivers::ResourceName& instrument) {
  if (instrument.Kind() == drivers::InterfaceKind::Socket) return Protocol::Raw;
  const auto* device = std::get_if<drivers::LanDeviceAddress>(&instrument.GetAddress());
  if (device == nullptr) return {};
  return device->Protocol() == drivers::LanProtocol::Hislip ? Protocol::Hislip : Protocol::Vxi11;
}

Request ParseTapOptions(int argc, const char* const* argv) {
  TapOptions options;
  std::string instrument;
  std::string log;
  Ports ports;
  int timeout = UsualTimeout;

  CLI::App app("Stands between a program and an instrument, and keeps what they say.", "portico-tap");
  app.set_version_flag("--version", "portico-tap " + ToUtf8(ApplicationVersion()), "Print the version and end");
  app.add_option("INSTRUMENT", instrument, "The instrument's name, such as TCPIP::192.168.1.5::5025::SOCKET")
      ->required();
  for (std::size_t i = 0; i < Protocols.size(); ++i) {
    app.add_option(Protocols[i].Option, ports[i], Protocols[i].Help)->type_name("PORT")->check(CLI::Range(0, 65535));
  }
  app.add_option("--bind", options.Address, "The IPv4 or IPv6 address to listen on")
      ->type_name("ADDRESS")
      ->capture_default_str();
  auto* logOption = app.add_option("--log", log, "Keep the conversation in this log")->type_name("FILE");
  app.add_flag("--overwrite", options.Overwrite, "Begin the log anew instead of extending it")->needs(logOption);
  app.add_flag("--show", options.Show, "Print the conversation, as portico-run does");
  app.add_option("--timeout", timeout,
                 "How long the instrument may take to be reached and, where it speaks otherwise, to answer")
      ->type_name("MS")
      ->check(CLI::Range(ShortestTimeout, LongestTimeout))
      ->capture_default_str();
  if (const auto ending = commandline::Parse(app, argc, argv)) {
    return std::visit([](const auto& text) { return Request(text); }, *ending);
  }

  options.Timeout = std::chrono::milliseconds(timeout);
  auto name = drivers::ResourceName::Parse(instrument);
  if (const auto* error = std::get_if<drivers::ResourceNameError>(&name)) {
    return UsageError{"'" + instrument + "' is no instrument name: " + error->Text};
  }
  options.Instrument = std::get<drivers::ResourceName>(std::move(name));
  if (logOption->count() > 0) {
    const Utf8Text file = FromUtf8(log);
    if (file.BadByte || file.Text.empty()) return UsageError{"--log '" + log + "': name a file in UTF-8"};
    options.LogFile = file.Text;
  }
  if (auto error = ChoosePort(options, ports)) return *error;
  return options;
}

} // namespace portico::tap
