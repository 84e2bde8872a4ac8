#pragma once

#include "discovery/MdnsSearch.h"
#include "discovery/Vxi11Search.h"
#include "platform/IInstrumentSearch.h"

#include <optional>
#include <set>
#include <vector>

namespace portico::discovery {

/// Looks everywhere: what is attached to the machine comes first, then what answers on the local network. Each name
/// comes once, and no more than a thousand of them, whatever goes on there.
class InstrumentSearch final : public IInstrumentSearch {
public:
  void Start() override;
  std::vector<FoundInstrument> Take() override;
  void Stop() noexcept override;

private:
  std::vector<FoundInstrument> m_attached; // until it is taken
  std::set<String> m_told;
  std::optional<Vxi11Search> m_vxi11;
  std::optional<MdnsSearch> m_mdns;
};

} // namespace portico::discovery
