#pragma once

#include "mdns/ServiceBrowser.h"
#include "platform/IInstrumentSearch.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace portico::discovery {

/// The instruments that services on the local network stand for. Remembers as many addresses as instruments can be
/// listed; a web page at a further one stands for nothing.
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
  /// By address: what the web page stands for until the instrument has talked otherwise or that was told.
  std::map<std::string, std::optional<FoundInstrument>> m_pages;
};

} // namespace portico::discovery
