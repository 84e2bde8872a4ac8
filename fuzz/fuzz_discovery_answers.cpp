#include "discovery/PortQuestion.h"
#include "discovery/ServiceNames.h"
#include "drivers/ResourceName.h"

#include <algorithm>
#include <cstdlib>

using namespace portico;

namespace {

constexpr std::size_t ShortestAnswer = 28; // bytes of a port, and of the reply in front of it

void CheckDatagram(std::string_view datagram) {
  std::uint32_t number = 0;
  for (const char byte : datagram.substr(0, 4)) number = number << 8U | static_cast<unsigned char>(byte);
  if (discovery::TellsOfCoreChannel(datagram, number) && datagram.size() < ShortestAnswer) std::abort();
}

void Check(const FoundInstrument& found) {
  const std::string name = ToUtf8(found.Name);
  const auto parsed = drivers::ResourceName::Parse(name);
  const auto* known = std::get_if<drivers::ResourceName>(&parsed);
  if (known == nullptr || known->Canonical() != name) std::abort();
  const bool isClean = std::none_of(found.Description.begin(), found.Description.end(),
                                    [](char16_t unit) { return unit < 0x20 || (unit >= 0x7F && unit < 0xA0); });
  if (!isClean) std::abort();
}

} // namespace

// Whatever a network answers, what is listed opens as it stands and is one line of text. The first byte picks the type
// of a service and the next two its port; then come its name and the entries of its TXT record, a line each.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckDatagram(bytes);
  if (size < 3) return 0;
  const auto& types = discovery::ServiceNames::Types();
  mdns::Service service = {types[data[0] % types.size()], "", "192.0.2.7",
                           static_cast<std::uint16_t>(data[1] << 8U | data[2])};
  std::string_view rest = bytes.substr(3);
  service.Name = rest.substr(0, rest.find('\n'));
  while (rest.find('\n') != std::string_view::npos) {
    rest.remove_prefix(rest.find('\n') + 1);
    service.Text.emplace_back(rest.substr(0, rest.find('\n')));
  }
  discovery::ServiceNames names;
  if (const auto found = names.Add(service)) Check(*found);
  for (const FoundInstrument& found : names.Settle()) Check(found);
  return 0;
}
