#pragma once

#include "platform/IInstrumentSearch.h"
#include "system/BackgroundTask.h"

#include <memory>
#include <vector>

namespace portico::discovery {

/// Instruments that announce themselves by mDNS. Avahi's calls wait for the message bus, which may hang: they are made
/// on a thread of their own, which nobody waits for.
class MdnsSearch {
public:
  /// Finds nothing where there is no avahi. Fails with `std::system_error`.
  MdnsSearch();
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
