#include "discovery/ServiceNames.h"

#include "discovery/ListedInstrument.h"
#include "drivers/hislip/HislipTransport.h"
#include "wire/PortMapper.h"

#include <algorithm>
#include <array>
#include <string_view>

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
  if (service.Type == Hislip)
    return host + "::hislip0" + (service.Port == drivers::HislipTransport::StandardPort ? "" : "," + port) + "::INSTR";
  if (service.Type == Vxi11)
    return host + (service.Port == wire::PortMapper::Port ? "" : "," + port) + "::inst0::INSTR";
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
  if (service.Type == WebPage) {
    if (m_named.count(service.Address) != 0) return {};
    if (auto instrument = ListedInstrument("TCPIP0::" + service.Address + "::inst0::INSTR", Facts(service))) {
      m_pages.emplace(service.Address, std::move(*instrument));
    }
    return {};
  }
  auto instrument = ListedInstrument(NameOf(service), Facts(service));
  if (instrument) {
    m_named.insert(service.Address);
    m_pages.erase(service.Address);
  }
  return instrument;
}

std::vector<FoundInstrument> ServiceNames::Settle() {
  std::vector<FoundInstrument> instruments;
  for (auto& [address, instrument] : m_pages) {
    m_named.insert(address);
    instruments.push_back(std::move(instrument));
  }
  m_pages.clear();
  return instruments;
}

} // namespace portico::discovery
