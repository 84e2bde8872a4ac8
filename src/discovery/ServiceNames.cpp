#include "discovery/ServiceNames.h"

#include "discovery/ListedInstrument.h"
#include "drivers/hislip/HislipTransport.h"
#include "wire/PortMapper.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace portico::discovery {
namespace {

constexpr std::string_view WebPage = "_lxi._tcp";
constexpr std::string_view RawSocket = "_scpi-raw._tcp";
constexpr std::string_view Vxi11 = "_vxi-11._tcp";
constexpr std::string_view Hislip = "_hislip._tcp";

/// The keys by which instruments introduce themselves.
constexpr std::array<std::string_view, 4> Introduction = {"Manufacturer", "Model", "SerialNumber", "FirmwareVersion"};

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return EqualNoCase(FromCodePage(left), FromCodePage(right));
}

/// What the service tells of the instrument; the name of its instance if it tells nothing.
std::vector<std::string> Facts(const mdns::Service& service) {
  std::vector<std::string> facts;
  for (const std::string_view key : Introduction) {
    for (const std::string& entry : service.Text) {
      const auto equals = entry.find('=');
      if (equals == std::string::npos || equals + 1 == entry.size()) continue;
      if (!EqualsIgnoringCase(std::string_view(entry).substr(0, equals), key)) continue;
      facts.push_back(entry.substr(equals + 1));
      break;
    }
  }
  if (facts.empty()) facts.push_back(service.Name);
  return facts;
}

/// The canonical name; empty for a service of another type.
std::string NameOf(const mdns::Service& service) {
  const std::string host = "TCPIP0::" + service.Address;
  const std::string port = std::to_string(service.Port);
  if (service.Type == RawSocket) return host + "::" + port + "::SOCKET";
  if (service.Type == Hislip) {
    return host + "::hislip0" + (service.Port == drivers::HislipTransport::StandardPort ? "" : "," + port) + "::INSTR";
  }
  if (service.Type == Vxi11) {
    return host + (service.Port == wire::PortMapper::Port ? "" : "," + port) + "::inst0::INSTR";
  }
  return {};
}

} // namespace

const std::vector<std::string>& ServiceNames::Types() {
  // Not destroyed: a thread that nobody waits for reads it.
  static const auto& types = *new std::vector<std::string>{std::string(WebPage), std::string(RawSocket),
                                                           std::string(Vxi11), std::string(Hislip)};
  return types;
}

std::optional<FoundInstrument> ServiceNames::Add(const mdns::Service& service) {
  const bool isPage = service.Type == WebPage;
  const std::string name = isPage ? "TCPIP0::" + service.Address + "::inst0::INSTR" : NameOf(service);
  auto instrument = ListedInstrument(name, Facts(service));
  if (!instrument) return {};
  const auto known = m_pages.find(service.Address);
  if (known != m_pages.end()) {
    if (!isPage) known->second.reset();
  } else if (m_pages.size() < MostListed) {
    m_pages.emplace(service.Address, isPage ? instrument : std::nullopt);
  }
  return isPage ? std::nullopt : instrument;
}

std::vector<FoundInstrument> ServiceNames::Settle() {
  std::vector<FoundInstrument> instruments;
  for (auto& [address, instrument] : m_pages) {
    if (instrument) instruments.push_back(std::move(*std::exchange(instrument, std::nullopt)));
  }
  return instruments;
}

} // namespace portico::discovery
