#pragma once

#include "drivers/DriverStatus.h"
#include "drivers/IClock.h"
#include "system/Cancellation.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace portico::drivers {

/// An address and port in the form that the operating system's socket functions take.
using NetworkAddress = std::vector<std::byte>;

struct HostLookup {
  DriverResult Result = {};
  /// In the order in which they are to be tried; not empty if the look-up succeeded.
  std::vector<NetworkAddress> Addresses = {};
};

/// Finds the addresses of a name, or reads an IPv4 or IPv6 address. Gives up at `deadline`, although the system's own
/// look-up may take longer: that then ends unheard on a thread of its own. `cancellation` may be null.
HostLookup LookUpHost(const std::string& host, std::uint16_t port, TimePoint deadline,
                      const system::Cancellation* cancellation = nullptr);

} // namespace portico::drivers
