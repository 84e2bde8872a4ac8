#pragma once

#include <string>
#include <vector>

namespace portico::system {

/// One IPv4 address of a network interface that is up. Addresses in figures.
struct NetworkInterface {
  unsigned Index = 0;
  std::string Address = {};
  /// Empty where there is none to broadcast to.
  std::string Broadcast = {};
};

/// Those of this machine; none where there is no network.
std::vector<NetworkInterface> NetworkInterfaces();

} // namespace portico::system
