#pragma once

#include "discovery/MdnsSearch.h"
#include "discovery/ToldInstruments.h"
#include "discovery/Vxi11Search.h"
#include "platform/IInstrumentSearch.h"

#include <optional>
#include <vector>

namespace portico::discovery {

/// Looks everywhere: what is attached to the machine comes first, then what answers on the local network. No more
/// than a thousand come, whatever goes on there.
class InstrumentSearch final : public IInstrumentSearch {
public:
  void Start(const std::vector<String>& known) override;
  std::vector<FoundInstrument> Take() override;
  void Stop() noexcept override;

private:
  std::vector<FoundInstrument> m_attached; // until it is taken
  ToldInstruments m_told;
  std::optional<Vxi11Search> m_vxi11;
  std::optional<MdnsSearch> m_mdns;
};

} // namespace portico::discovery
