#include "system/NetworkInterfaces.h"

#include <arpa/inet.h>
#include <array>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>

namespace portico::system {
namespace {

std::string InFigures(const sockaddr* address) {
  std::array<char, INET_ADDRSTRLEN> text{};
  const auto& internet = *reinterpret_cast<const sockaddr_in*>(address);
  return ::inet_ntop(AF_INET, &internet.sin_addr, text.data(), text.size()) != nullptr ? text.data() : "";
}

} // namespace

std::vector<NetworkInterface> NetworkInterfaces() {
  std::vector<NetworkInterface> interfaces;
  ifaddrs* first = nullptr;
  if (::getifaddrs(&first) != 0) return interfaces;
  const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != AF_INET || (entry->ifa_flags & IFF_UP) == 0) {
      continue;
    }
    NetworkInterface interface = {::if_nametoindex(entry->ifa_name), InFigures(entry->ifa_addr)};
    if ((entry->ifa_flags & IFF_BROADCAST) != 0 && entry->ifa_broadaddr != nullptr) {
      interface.Broadcast = InFigures(entry->ifa_broadaddr);
    }
    interfaces.push_back(std::move(interface));
  }
  return interfaces;
}

} // namespace portico::system
