#pragma once

#include "system/BackgroundTask.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace portico::mdns {

/// What is to be announced.
struct AnnouncedService {
  /// As in `_scpi-raw._tcp`.
  std::string Type;
  /// Where it listens, in figures. It is announced on the interface of that address, on all for that of any interface.
  std::string Address;
  std::uint16_t Port = 0;
};

/// Tells the local network of services for as long as it lives, by avahi. Where its daemon is not running it waits for
/// it, and so it does when the daemon goes away.
class Announcement {
public:
  struct Content {
    /// Of the instance, at most 63 bytes of UTF-8. If somebody else has it, one like it is taken.
    std::string Name;
    /// At least one.
    std::vector<AnnouncedService> Services;
    /// Entries of the form key=value.
    std::vector<std::string> Text;
  };
  /// Called on a thread of their own, perhaps once more when the announcement has ended.
  struct News {
    /// With the name that was taken.
    std::function<void(const std::string&)> Announced;
    /// With the reason why nothing is announced, at the moment or for good.
    std::function<void(const std::string&)> Failed;
  };

  /// Fails with `std::system_error`.
  Announcement(Content content, News news);

private:
  system::BackgroundTask m_task;
};

} // namespace portico::mdns
