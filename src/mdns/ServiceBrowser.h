#pragma once

#include "system/Cancellation.h"

#include <cstdint>
#include <string>
#include <vector>

namespace portico::mdns {

/// A service that somebody offers on the local network.
struct Service {
  /// As in `_scpi-raw._tcp`.
  std::string Type = {};
  /// Of the instance: any text.
  std::string Name = {};
  /// IPv4, in figures.
  std::string Address = {};
  std::uint16_t Port = 0;
  /// Its TXT record: entries of the form key=value, or any bytes.
  std::vector<std::string> Text = {};
};

class IServiceListener {
public:
  virtual ~IServiceListener() = default;
  /// The same service is told once for each interface that it is heard on, and again when it has changed.
  virtual void Found(const Service& service) = 0;
  /// All that have answered so far have been told. May come again.
  virtual void Settled() = 0;
};

/// Browses for services of these types, and tells the listener on this thread, until it is cancelled or the daemon goes
/// away. Returns at once where there is no avahi, which is no failure. Calls may be held up by the message bus, in
/// which they cannot be cancelled.
void BrowseServices(const std::vector<std::string>& types, IServiceListener& listener,
                    const system::Cancellation& cancellation);

} // namespace portico::mdns
