#pragma once

#include "mdns/ServiceBrowser.h"
#include "platform/IInstrumentSearch.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace portico::discovery {

/// The instruments that services on the local network stand for.
class ServiceNames {
public:
  /// What to browse for.
  static const std::vector<std::string>& Types();

  /// The instrument that answers at this service; none for a service of another type, and for an instrument's web page,
  /// which does not tell what else it speaks.
  std::optional<FoundInstrument> Add(const mdns::Service& service);

  /// Those that have a web page and nothing else so far: such instruments speak VXI-11 as a rule. Each comes once.
  std::vector<FoundInstrument> Settle();

private:
  std::set<std::string> m_named;                  // addresses
  std::map<std::string, FoundInstrument> m_pages; // by address
};

} // namespace portico::discovery
