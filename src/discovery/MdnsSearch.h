#pragma once

#include "mdns/ServiceBrowser.h"
#include "platform/IInstrumentSearch.h"
#include "system/BackgroundTask.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace portico::discovery {

/// Instruments that announce themselves by mDNS. Avahi's calls wait for the message bus, which may hang: they are made
/// on a thread of their own, which nobody waits for.
class MdnsSearch {
public:
  /// What looks for services; see `mdns::BrowseServices`.
  using Browse = std::function<void(const std::vector<std::string>& types, mdns::IServiceListener& listener,
                                    const system::Cancellation& cancellation)>;

  /// Finds nothing where there is no avahi. Fails with `std::system_error`.
  explicit MdnsSearch(Browse browse = mdns::BrowseServices);
  ~MdnsSearch();
  MdnsSearch(const MdnsSearch&) = delete;
  MdnsSearch& operator=(const MdnsSearch&) = delete;

  std::vector<FoundInstrument> Take();

private:
  class Finds;

  std::shared_ptr<Finds> m_finds;
  system::BackgroundTask m_task;
};

} // namespace portico::discovery
